// The differentiation engine on any equation, for variable names taken from
// a short list or from the input, with and without the step-by-step trace,
// and the two derivation commands that write the result for the document.
// Recording the steps must not change the derivative; a failure gives ""
// with a described error; every written line is a comment.

#include "LectorFuzz.h"
#include "algebra/CalcSimbolic.h"
#include "commands/OrdenDerivar.h"
#include "differentiation/Derivada.h"
#include "lang/Caracteres.h"
#include "lang/Cp1252.h"
#include "lang/Errores.h"

// Valid names, in several cases and with accented letters, and bad ones.
const std::array<const char*, 16> kNombres = {
    "x",        "y",           "t",     "s",     "X",  "Y",  "z1", "v_2",
    "\xC3\xB1", "\xC3\xA1rea", "dy_dx", "dx_dy", "1x", "_x", "",   "x y"};

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  LectorFuzz in(datos, tam);
  const std::uint8_t opciones = in.Byte();
  const auto nombre = [&](std::uint8_t b) {
    return b & 128 ? in.TextoCorto(6) : std::string(kNombres[b % kNombres.size()]);
  };
  const std::string dep = nombre(in.Byte()), ind = nombre(in.Byte());
  const int cifras = in.Byte() % 20;
  const std::string ecuacion = in.Resto();
  // A refused name keeps the old one and says why, with no place in the
  // text; the pair is always valid and distinct.
  Derivada d, p;
  const auto rechazo = [&] { return d.ErrNumber() && d.ErrLin() == -1 && !d.ErrDesc().empty(); };
  d.VarInd(ind);
  EXIGE(d.VarInd() == ind || rechazo(), Visible(ind));
  d.VarDep(dep);
  EXIGE(d.VarDep() == dep || rechazo(), Visible(dep));
  const std::string vd = d.VarDep(), vi = d.VarInd(), bd = Utf8ACp1252(vd), bi = Utf8ACp1252(vi);
  EXIGE(EsIdentificador(bd) && EsIdentificador(bi) && EnMayusculas(bd) != EnMayusculas(bi));

  // A derivative reads again as an expression, with no syntax error.
  const std::string r = d.Derivar(ecuacion);
  const auto caso = [&] { return "«" + Visible(r) + "», " + d.ErrDesc() + En(ecuacion); };
  EXIGE(r.empty() == (d.ErrNumber() != 0) && r.empty() != d.ErrDesc().empty(), caso());
  CalcSimbolic c;
  if (!r.empty()) c.Calc(r);
  for (const int sintaxis : {1, 2, 3, 5})
    EXIGE(c.ErrNumber() != NumeroError(sintaxis), caso());

  // Recording the steps changes nothing else.
  p.VarInd(vi), p.VarDep(vd), p.PasToPas(true);
  const std::string rp = p.Derivar(ecuacion);
  EXIGE(rp == r && p.ErrNumber() == d.ErrNumber() && p.ErrDesc() == d.ErrDesc() &&
            (p.ErrNumber() != 0 || p.Pasos() >= 2) && p.Paso(0).empty() &&
            p.Paso(p.Pasos() + 1).empty(),
        "«" + Visible(rp) + "» con pasos; " + caso());
  if (!(opciones & 1)) return 0;

  // The command, as the editor runs it on the whole document, writes comments.
  const bool fracc = opciones & 2;
  const SalidaDerivar s = EjecutaDerivar(
      ecuacion, {.VarDep = vd, .VarInd = vi, .CifRedExt = cifras, .OutFracc = fracc}, opciones & 4);
  const std::string t = s.Texto();
  bool comentadas = t.starts_with("\r\n'");
  for (auto fin = t.find("\r\n", 2); fin != std::string::npos; fin = t.find("\r\n", fin + 2))
    comentadas = comentadas && t.compare(fin, 3, "\r\n'") == 0;
  EXIGE(s.piezas.empty() == (s.ErrNumber != 0) && s.ErrNumber == d.ErrNumber() &&
            (s.ErrNumber != 0 || comentadas),
        "«" + Visible(t) + "»" + En(ecuacion));
  return 0;
}
