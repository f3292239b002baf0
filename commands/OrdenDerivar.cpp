#include "commands/OrdenDerivar.h"

#include "algebra/FormatNum.h"
#include "differentiation/Derivada.h"
#include "editor/Documento.h"
#include "lang/AnaLex.h"
#include "lang/Cp1252.h"

namespace {

// A step line is broken too when, with its leading "'", it would fill a whole
// document row: one cell is left free, so that the row can still be typed in.
constexpr int kMaxFila = Documento::kMaxCeldas - 1;

// Sets both variables whatever the engine's current pair. Each setting is
// checked against the other variable's current name, so a new pair can clash
// with the old one at every step (y, x swapped to x, y). A one-letter name
// that is neither of the four first takes the independent variable's place,
// which frees both names; one letter can never be a derivative name. Should
// the new dependent name be the derivative name that this stand-in makes
// ("dy_du" with "u"), the next stand-in is tried.
void FijaVariables(Derivada& d, const ConfigDerivacion& config) {
  const auto mismo = [](const std::string& a, const std::string& b) {
    return EnMayusculas(Utf8ACp1252(a)) == EnMayusculas(Utf8ACp1252(b));
  };
  for (const char* provisional : {"u", "v", "w", "t"}) {
    if (mismo(provisional, config.VarDep) || mismo(provisional, config.VarInd) ||
        mismo(provisional, d.VarDep()))
      continue;
    d.VarInd(provisional);
    d.VarDep(config.VarDep);
    d.VarInd(config.VarInd);
    if (d.VarDep() == config.VarDep && d.VarInd() == config.VarInd) return;
  }
}

void CopiaError(const Derivada& d, SalidaDerivar& salida) {
  salida.piezas.clear();
  salida.ErrNumber = d.ErrNumber();
  salida.ErrLin = d.ErrLin();
  salida.ErrCol = d.ErrCol();
  salida.ErrLen = d.ErrLen();
  salida.ErrDesc = d.ErrDesc();
}

// Runs the engine with the settings; false (and the error) on failure.
bool Deriva(Derivada& d, const std::string& documento, const ConfigDerivacion& config,
            std::string& resultado, SalidaDerivar& salida) {
  FijaVariables(d, config);
  if (d.VarDep() != config.VarDep || d.VarInd() != config.VarInd) {
    CopiaError(d, salida);
    return false;
  }
  resultado = d.Derivar(documento);
  if (d.ErrNumber() != 0) {
    CopiaError(d, salida);
    return false;
  }
  return true;
}

std::string Formatea(const std::string& resultado, const ConfigDerivacion& config) {
  FormatNum formato;
  formato.OutFracc(config.OutFracc);
  formato.CifRed(config.CifRedExt);
  return formato.FCoef(resultado);
}

} // namespace

std::string SalidaDerivar::Texto() const {
  std::string texto;
  for (const std::string& p : piezas)
    texto += p;
  return texto;
}

std::string PartePorLineas(const std::string& texto, int usado, int ancho) {
  AnaLex lex;
  lex.IndFA(1);
  lex.IndNum(2);
  lex.IndId(3);
  for (const char* op : {"+", "-", "*", "·", "/", "^", "(", ")", "=", "-->"})
    lex.AñadeOpr(4, op);
  const std::string bytes = Utf8ACp1252(texto);
  lex.BufferBytes(bytes);
  std::string out;
  int linea = usado;
  std::size_t hecho = 0; // bytes of `bytes` already copied
  while (lex.SgtToken() != 1) {
    const auto fin = static_cast<std::size_t>(lex.PtrBuffer());
    const std::size_t ini = fin - static_cast<std::size_t>(lex.LongLex());
    // Break before this token when it would pass the width.
    if (linea + static_cast<int>(fin - hecho) > ancho && !out.empty()) {
      out.append(bytes, hecho, ini - hecho);
      out += " _\r\n'";
      linea = 1;
      hecho = ini;
    }
    out.append(bytes, hecho, fin - hecho);
    linea += static_cast<int>(fin - hecho);
    hecho = fin;
  }
  out.append(bytes, hecho, std::string::npos);
  return Cp1252AUtf8(out);
}

MotorDerivar::MotorDerivar() : d_(std::make_unique<Derivada>()) {}
MotorDerivar::~MotorDerivar() = default;

SalidaDerivar EjecutaDerivar(const std::string& documento, const ConfigDerivacion& config,
                             bool pasoAPaso) {
  return MotorDerivar().Ejecuta(documento, config, pasoAPaso);
}

SalidaDerivar DerivadaEnUnaLinea(const std::string& ecuacion, const ConfigDerivacion& config) {
  return MotorDerivar().EnUnaLinea(ecuacion, config);
}

SalidaDerivar MotorDerivar::Ejecuta(const std::string& documento, const ConfigDerivacion& config,
                                    bool pasoAPaso) {
  SalidaDerivar salida;
  Derivada& d = *d_;
  d.PasToPas(pasoAPaso);
  std::string resultado;
  if (!Deriva(d, documento, config, resultado, salida)) return salida;
  if (pasoAPaso) {
    for (int i = 1; i <= d.Pasos(); ++i) {
      salida.piezas.push_back("\r\n");
      const std::string paso = d.Paso(i);
      salida.piezas.push_back("'" +
                              (LongitudUtf8(paso) + 1 > kMaxFila ? PartePorLineas(paso, 1) : paso));
    }
    return salida;
  }
  const std::string cabecera = "'d" + config.VarDep + "/d" + config.VarInd + " = ";
  salida.piezas = {"\r\n", "'Derivada hallada:\r\n",
                   cabecera + PartePorLineas(Formatea(resultado, config), LongitudUtf8(cabecera))};
  return salida;
}

SalidaDerivar MotorDerivar::EnUnaLinea(const std::string& ecuacion, const ConfigDerivacion& config,
                                       bool pasos) {
  SalidaDerivar salida;
  Derivada& d = *d_;
  d.PasToPas(pasos);
  std::string resultado;
  const bool bien = Deriva(d, ecuacion, config, resultado, salida);
  for (int i = 1; pasos && i <= d.Pasos(); ++i)
    salida.piezas.push_back(d.Paso(i));
  if (bien) salida.piezas.push_back(Formatea(resultado, config));
  return salida;
}
