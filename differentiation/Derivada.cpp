#include "differentiation/Derivada.h"

#include <array>

#include "algebra/CalcSimbolic.h"
#include "algebra/Parentesis.h"
#include "differentiation/Reglas.h"
#include "lang/Caracteres.h"
#include "lang/Cp1252.h"
#include "lang/Errores.h"
#include "lang/SintaxExp.h"

namespace {

constexpr auto kMensajes = std::to_array<const char*>({
    "",
    "La variable dy_dx es de uso interno por el programa",
    "El identificador no es válido",
    "No se pudo despejar el cociente de diferenciales",
    "La variable dependiente debe ser distinta a la variable independiente",
    "La expresión crece en exceso al derivarla: simplifíquela o divídala en partes",
});

constexpr char kPunto = static_cast<char>(0xB7); // "·", the second spelling of the product

// One derivation's own bounds, before the final solving. The bytes its
// rewriting loop may copy: every pass copies, and scans, the whole working
// text, so a sum of ten thousand terms would take seconds; the largest
// benchmarked derivations copy about 110 MB, and this bound is reached in
// well under a second. The bytes it may keep as steps: step by step, each
// pass keeps a copy of the working text, and without a bound a sum of a few
// hundred products would keep hundreds of megabytes. The working text itself
// is held to the calculator's kMaxTexto.
constexpr std::size_t kMaxTrabajoDerivada = 128 * 1024 * 1024;
constexpr std::size_t kMaxPasosDerivada = 32 * 1024 * 1024;

bool EsOperadorProducto(char c) { return c == '*' || c == kPunto || c == '/' || c == '^'; }

bool EsLetraDeNombre(unsigned char c) { return EsInicioId(c) || c == '_'; }

// A "+" or "-" that is the exponent sign of a number such as 2.5e-3: after
// e/E/d/D, after a digit, and the digit run not part of a name (xe-3 is a
// subtraction).
bool EsSignoDeExponente(std::string_view t, std::size_t i) {
  if (i < 2) return false;
  const char e = t[i - 1];
  if (e != 'e' && e != 'E' && e != 'd' && e != 'D') return false;
  std::size_t j = i - 1;
  if (!EsDigito(static_cast<unsigned char>(t[j - 1]))) return false;
  while (j > 0 && (EsDigito(static_cast<unsigned char>(t[j - 1])) || t[j - 1] == '.'))
    --j;
  return j == 0 || !EsLetraDeNombre(static_cast<unsigned char>(t[j - 1]));
}

// The position of `op` outside all parentheses, or npos. "+", "*" and "·"
// are sought from the left; "-", "/" and "^" from the right, so that
// a-b-c is (a-b)-c and a^b^c is (a^b)^c. A "+" or "-" after "*", "·", "/" or
// "^", or in a number's exponent, is a sign and is passed over.
std::size_t BuscaOperador(std::string_view t, char op) {
  const bool adelante = op == '+' || op == '*' || op == kPunto;
  const bool esSigno = op == '+' || op == '-';
  int nivel = 0;
  const std::size_t n = t.size();
  for (std::size_t k = 0; k < n; ++k) {
    const std::size_t i = adelante ? k : n - 1 - k;
    const char c = t[i];
    if (c == '(')
      nivel += adelante ? 1 : -1;
    else if (c == ')')
      nivel += adelante ? -1 : 1;
    else if (c == op && nivel == 0) {
      if (esSigno && i > 0 && (EsOperadorProducto(t[i - 1]) || EsSignoDeExponente(t, i))) continue;
      return i;
    }
  }
  return std::string_view::npos;
}

// Whole-identifier occurrences of `nombre` (upper case) in `t`, ignoring
// case. Numbers are skipped whole, so the "e5" of 2e5 is no name.
int CuentaVar(std::string_view t, std::string_view nombre) {
  int cuenta = 0;
  for (std::size_t i = 0; i < t.size();) {
    const auto c = static_cast<unsigned char>(t[i]);
    if (EsInicioId(c)) {
      std::size_t j = i + 1;
      while (j < t.size() && EsCarPalabra(static_cast<unsigned char>(t[j])))
        ++j;
      if (j - i == nombre.size() && EnMayusculas(t.substr(i, j - i)) == nombre) ++cuenta;
      i = j;
    } else if (EsDigito(c) || c == '.') {
      std::size_t j = i + 1;
      while (j < t.size() && (EsDigito(static_cast<unsigned char>(t[j])) || t[j] == '.'))
        ++j;
      if (j < t.size() && (t[j] == 'e' || t[j] == 'E' || t[j] == 'd' || t[j] == 'D')) {
        std::size_t k = j + 1;
        if (k < t.size() && (t[k] == '+' || t[k] == '-')) ++k;
        if (k < t.size() && EsDigito(static_cast<unsigned char>(t[k]))) {
          j = k;
          while (j < t.size() && EsDigito(static_cast<unsigned char>(t[j])))
            ++j;
        }
      }
      i = j;
    } else {
      ++i;
    }
  }
  return cuenta;
}

void ReemplazaTodo(std::string& t, std::string_view de, std::string_view a) {
  for (std::size_t p = t.find(de); p != std::string::npos; p = t.find(de, p + a.size()))
    t.replace(p, de.size(), a);
}

// The working text as a step shows it: each mark "@(" ... ")@" written as
// `abre` ... `cierra`.
std::string EscribeMarcas(std::string w, std::string_view abre, std::string_view cierra) {
  ReemplazaTodo(w, "@(", abre);
  ReemplazaTodo(w, ")@", cierra);
  return w;
}

} // namespace

Derivada::Derivada() = default;
Derivada::~Derivada() = default;
Derivada::Derivada(Derivada&&) noexcept = default;
Derivada& Derivada::operator=(Derivada&&) noexcept = default;

std::string Derivada::NombreDifer() const { return "d" + varDep_ + "_d" + varInd_; }

void Derivada::Registra(std::int32_t numero, std::string descripcion, int lin, int col, int len) {
  errNumber_ = numero;
  errDesc_ = std::move(descripcion);
  errLin_ = lin;
  errCol_ = col;
  errLen_ = len;
}

// The derivation's own errors have no place in the text.
void Derivada::Falla(const ErrorMotor& error) {
  Registra(error.numero, DescripcionDe(error, kMensajes));
}

void Derivada::VarDep(const std::string& nombre) { FijaVariable(varDep_, nombre, varInd_); }
void Derivada::VarInd(const std::string& nombre) { FijaVariable(varInd_, nombre, varDep_); }

void Derivada::FijaVariable(std::string& destino, const std::string& nombre,
                            const std::string& otra) {
  const std::string mayus = EnMayusculas(Utf8ACp1252(nombre));
  if (mayus == EnMayusculas(Utf8ACp1252(NombreDifer())))
    return Falla(ErrorMotor(ErrDerivada::NombreInterno));
  if (!EsIdentificador(Utf8ACp1252(nombre)))
    return Falla(ErrorMotor(ErrDerivada::IdentificadorNoValido));
  if (mayus == EnMayusculas(Utf8ACp1252(otra)))
    return Falla(ErrorMotor(ErrDerivada::VariablesIguales));
  destino = nombre;
}

std::string Derivada::Paso(int i) const {
  return i >= 1 && i <= Pasos() ? pasos_[static_cast<std::size_t>(i - 1)] : "";
}

void Derivada::AgregaPaso(const std::string& texto) {
  tamPasos_ += texto.size();
  if (tamPasos_ > kMaxPasosDerivada) throw ErrorMotor(ErrDerivada::CreceEnExceso);
  pasos_.push_back(Cp1252AUtf8(texto));
}

std::string Derivada::Derivar(const std::string& ecuacion) {
  Empieza();
  try {
    std::string expr;
    if (!PreparaEcuacion(ecuacion, expr)) return "";
    std::string w = MarcaEcuacion(expr);
    ResuelveMarcas(w);
    return Despeja(w);
  } catch (const ErrorMotor& e) {
    Falla(e);
    return "";
  }
}

// A derivation starts with no error and no steps, and with the variables as
// the rules compare them.
void Derivada::Empieza() {
  Registra(0, "");
  pasos_.clear();
  tamPasos_ = 0;
  depMayus_ = EnMayusculas(Utf8ACp1252(varDep_));
  indMayus_ = EnMayusculas(Utf8ACp1252(varInd_));
  if (!sintaxis_) sintaxis_ = std::make_unique<SintaxExp>();
  if (!calc_) calc_ = std::make_unique<CalcSimbolic>();
}

// The working text is the checker's normalised Expr. A syntax error passes
// the checker's record on unchanged, place included.
bool Derivada::PreparaEcuacion(const std::string& ecuacion, std::string& expr) {
  SintaxExp& s = *sintaxis_;
  if (!s.SintaxEcu(ecuacion)) {
    Registra(s.ErrNumber(), s.ErrDesc(), s.ErrLin(), s.ErrCol(), s.ErrLen());
    return false;
  }
  expr = Utf8ACp1252(s.Expr());
  if (CuentaVar(expr, EnMayusculas(Utf8ACp1252(NombreDifer()))) > 0)
    throw ErrorMotor(ErrDerivada::NombreInterno);
  return true;
}

// The derivative of L-(R) is pending.
std::string Derivada::MarcaEcuacion(const std::string& expr) {
  const std::size_t igual = expr.find('=');
  std::string w = "@(" + expr.substr(0, igual) + "-(" + expr.substr(igual + 1) + "))@";
  if (pasToPas_) AgregaPaso(EscribeMarcas(w, "", "") + " = 0 -->");
  return w;
}

// Resolves the first mark with the rules until none is left.
void Derivada::ResuelveMarcas(std::string& w) {
  std::size_t copiado = 0;
  for (std::size_t p1 = w.find('@'); p1 != std::string::npos; p1 = w.find('@')) {
    if (pasToPas_) AgregaPaso(std::string(SinParentesis(EscribeMarcas(w, "D(", ")"))) + " = ");
    // SeparaMarca: prefix "@(" inner ")@" suffix.
    const std::size_t p2 = w.find('@', p1 + 1);
    const std::string interior = w.substr(p1 + 2, p2 - p1 - 3);
    const std::string d = ResuelveNivel(std::string(SinParentesis(interior)));
    w = w.substr(0, p1) + d + w.substr(p2 + 1);
    copiado += w.size();
    if (w.size() > kMaxTexto || copiado > kMaxTrabajoDerivada)
      throw ErrorMotor(ErrDerivada::CreceEnExceso);
  }
  if (pasToPas_) AgregaPaso(std::string(SinParentesis(w)) + " = 0 -->");
}

// The calculator solves the differentiated equation for the derivative name.
// A text that grew past the calculator's bounds is the derivation's growth.
std::string Derivada::Despeja(const std::string& w) {
  const std::string resultado = calc_->Desp_axNb(Cp1252AUtf8(w), NombreDifer());
  if (const std::int32_t n = calc_->ErrNumber(); n != 0) {
    const bool crece = n == NumeroError(ErrAritmetica::TextoExcesivo) ||
                       n == NumeroError(ErrAritmetica::Anidamiento);
    throw ErrorMotor(crece ? ErrDerivada::CreceEnExceso : ErrDerivada::NoDespeja);
  }
  if (pasToPas_) AgregaPaso(Utf8ACp1252(NombreDifer()) + " = " + Utf8ACp1252(resultado));
  return resultado;
}

bool Derivada::Depende(std::string_view texto) const {
  return CuentaVar(texto, depMayus_) + CuentaVar(texto, indMayus_) > 0;
}

// One level of differentiation of U: the first rule that applies.
std::string Derivada::ResuelveNivel(const std::string& u) const {
  for (const char op : {'+', '-', '*', kPunto, '/', '^'}) {
    const std::size_t p = BuscaOperador(u, op);
    if (p == std::string::npos) continue;
    std::string_view a = std::string_view(u).substr(0, p), b = std::string_view(u).substr(p + 1);
    const char clave = op == kPunto ? '*' : op;
    const ReglaOperador* regla = &kReglaPotencia;
    for (const ReglaOperador& r : kReglasOperador)
      if (r.operador == clave) regla = &r;
    const bool dependeA = Depende(a), dependeB = Depende(b);
    // A divisor with a leading sign is pasted in parentheses, so that its
    // square in the quotient rule is (-x)^2 and not -(x^2).
    std::string bEntre;
    if (clave == '/' && !b.empty() && (b.front() == '-' || b.front() == '+')) {
      bEntre = "(" + std::string(b) + ")";
      b = bEntre;
    }
    if (dependeA && dependeB) return Rellena(regla->ambos, a, b, u);
    if (dependeA) return Rellena(regla->soloA, a, b, u);
    if (dependeB) return Rellena(regla->soloB, a, b, u);
    return "0";
  }
  // No blank reaches here: the checker's normalised text and the
  // calculator's results hold none.
  const std::string mayus = EnMayusculas(u);
  if (mayus == indMayus_) return "1";
  if (mayus == depMayus_) return Utf8ACp1252(NombreDifer());
  if (u.find('(') != std::string::npos) return ReglaFuncion(u);
  return "0";
}

// Name(W): the chain rule is carried by the mark around W in each template.
std::string Derivada::ReglaFuncion(const std::string& u) const {
  const std::size_t p = u.find('(');
  const std::string nombre = EnMayusculas(std::string_view(u).substr(0, p));
  const std::string_view w = std::string_view(u).substr(p + 1, u.size() - p - 2);
  if (!Depende(w)) return "0";
  for (const ReglaFuncionDato& r : kReglasFuncion)
    if (r.nombre == nombre) return Rellena(r.plantilla, "", "", w);
  return "";
}
