// The differentiation engine on any equation, for variable names taken from
// a short list or from the input, with and without the step-by-step trace,
// and the two derivation commands that write the result for the document.
// Recording the steps must not change the derivative; a failure gives ""
// with a described error; every written line is a comment.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "LectorFuzz.h"
#include "algebra/CalcSimbolic.h"
#include "commands/OrdenDerivar.h"
#include "differentiation/Derivada.h"
#include "lang/Caracteres.h"
#include "lang/Cp1252.h"
#include "lang/Errores.h"

namespace {

// Valid names, in several cases and with the accented letters, and names
// the engine must refuse.
const std::array<const char*, 16> kNombres = {
    "x",        "y",           "t",     "s",     "X",  "Y",  "z1", "v_2",
    "\xC3\xB1", "\xC3\xA1rea", "dy_dx", "dx_dy", "1x", "_x", "",   "x y"};

std::string Nombre(LectorFuzz& in) {
  const std::uint8_t b = in.Byte();
  if (b & 128) return in.TextoCorto(6);
  return kNombres[b % kNombres.size()];
}

bool Valido(const std::string& nombre) { return EsIdentificador(Utf8ACp1252(nombre)); }

// Every line the commands write after the document's own is a comment.
bool LineasComentadas(const std::string& texto) {
  if (texto.rfind("\r\n'", 0) != 0) return false;
  for (std::size_t fin = texto.find("\r\n", 2); fin != std::string::npos;
       fin = texto.find("\r\n", fin + 2))
    if (texto.compare(fin, 3, "\r\n'") != 0) return false;
  return true;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  CuentaAvisos();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  LectorFuzz in(datos, tam);
  const std::uint8_t opciones = in.Byte();
  const std::string dep = Nombre(in), ind = Nombre(in);
  const int cifras = in.Byte() % 20;
  const std::string ecuacion = in.Resto();

  Derivada d;
  // A refused name keeps the old one and says why, with no place in the text.
  const auto fija = [&](bool dependiente, const std::string& nombre) {
    dependiente ? d.VarDep(nombre) : d.VarInd(nombre);
    if ((dependiente ? d.VarDep() : d.VarInd()) != nombre)
      EXIGE(d.ErrNumber() != 0 && d.ErrLin() == -1 && !d.ErrDesc().empty(),
            "el nombre «" + Visible(nombre) + "» se rechaza sin error");
  };
  fija(false, ind);
  fija(true, dep);
  const std::string vd = d.VarDep(), vi = d.VarInd();
  // The pair is always valid and distinct.
  EXIGE(Valido(vd) && Valido(vi) && EnMayusculas(Utf8ACp1252(vd)) != EnMayusculas(Utf8ACp1252(vi)),
        "variables «" + Visible(vd) + "» y «" + Visible(vi) + "»");

  const std::string r = d.Derivar(ecuacion), donde = " en «" + Visible(ecuacion) + "»";
  EXIGE(r.empty() == (d.ErrNumber() != 0) && (r.empty() == !d.ErrDesc().empty()),
        "Derivar da «" + Visible(r) + "» con el error «" + d.ErrDesc() + "»" + donde);
  // A derivative reads again as an expression: no syntax error.
  CalcSimbolic c;
  if (!r.empty()) c.Calc(r);
  for (const int sintaxis : {1, 2, 3, 5})
    EXIGE(c.ErrNumber() != NumeroError(sintaxis),
          "la derivada «" + Visible(r) + "» no se lee" + donde);

  // Recording the steps changes nothing else.
  Derivada p;
  p.VarInd(vi), p.VarDep(vd), p.PasToPas(true);
  const std::string rp = p.Derivar(ecuacion);
  EXIGE(rp == r && p.ErrNumber() == d.ErrNumber() && p.ErrDesc() == d.ErrDesc() &&
            (p.ErrNumber() != 0 || p.Pasos() >= 2) && p.Paso(0).empty() &&
            p.Paso(p.Pasos() + 1).empty(),
        "con pasos «" + Visible(rp) + "» " + p.ErrDesc() + ", sin pasos «" + Visible(r) + "»" +
            donde);

  if (opciones & 1) { // the command, as the editor runs it on the whole document
    const ConfigDerivacion config{
        .VarDep = vd, .VarInd = vi, .CifRedExt = cifras, .OutFracc = (opciones & 2) != 0};
    const SalidaDerivar s = EjecutaDerivar(ecuacion, config, opciones & 4);
    EXIGE(s.piezas.empty() == (s.ErrNumber != 0) && s.ErrNumber == d.ErrNumber() &&
              (s.ErrNumber != 0 || LineasComentadas(s.Texto())),
          "la orden escribe «" + Visible(s.Texto()) + "» con el error " +
              std::to_string(s.ErrNumber) + donde);
  }
  return 0;
}
