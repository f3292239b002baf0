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

constexpr std::array<const char*, 6> kMensajes = {
    "",
    "La variable dy_dx es de uso interno por el programa",
    "El identificador no es válido",
    "No se pudo despejar el cociente de diferenciales",
    "La variable dependiente debe ser distinta a la variable independiente",
    "La expresión crece en exceso al derivarla: simplifíquela o divídala en partes",
};

constexpr char kPunto = static_cast<char>(0xB7); // "·", the second spelling of the product

struct Fallo {
  int codigo;
};

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
      while (j < t.size() && (EsCarId(static_cast<unsigned char>(t[j])) || t[j] == '_'))
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

} // namespace

Derivada::Derivada() = default;
Derivada::~Derivada() = default;
Derivada::Derivada(Derivada&&) noexcept = default;
Derivada& Derivada::operator=(Derivada&&) noexcept = default;

std::string Derivada::NombreDifer() const { return "d" + varDep_ + "_d" + varInd_; }

void Derivada::Falla(int codigo) {
  errNumber_ = NumeroError(codigo);
  errDesc_ = codigo >= 1 && codigo < static_cast<int>(kMensajes.size()) ? kMensajes[codigo] : "";
  errLin_ = -1;
  errCol_ = errLen_ = 0;
}

void Derivada::VarDep(const std::string& nombre) { FijaVariable(varDep_, nombre, varInd_); }
void Derivada::VarInd(const std::string& nombre) { FijaVariable(varInd_, nombre, varDep_); }

void Derivada::FijaVariable(std::string& destino, const std::string& nombre,
                            const std::string& otra) {
  const std::string mayus = EnMayusculas(Utf8ACp1252(nombre));
  if (mayus == EnMayusculas(Utf8ACp1252(NombreDifer()))) return Falla(1);
  if (!EsIdentificador(Utf8ACp1252(nombre))) return Falla(2);
  if (mayus == EnMayusculas(Utf8ACp1252(otra))) return Falla(4);
  destino = nombre;
}

std::string Derivada::Paso(int i) const {
  return i >= 1 && i <= Pasos() ? pasos_[static_cast<std::size_t>(i - 1)] : "";
}

void Derivada::AgregaPaso(const std::string& texto) {
  tamPasos_ += texto.size();
  if (tamPasos_ > kMaxPasosDerivada) throw Fallo{5};
  pasos_.push_back(Cp1252AUtf8(texto));
}

std::string Derivada::Derivar(const std::string& ecuacion) {
  errNumber_ = 0;
  errDesc_.clear();
  errLin_ = -1;
  errCol_ = errLen_ = 0;
  pasos_.clear();
  tamPasos_ = 0;
  depMayus_ = EnMayusculas(Utf8ACp1252(varDep_));
  indMayus_ = EnMayusculas(Utf8ACp1252(varInd_));
  if (!sintaxis_) sintaxis_ = std::make_unique<SintaxExp>();
  if (!calc_) calc_ = std::make_unique<CalcSimbolic>();
  try {
    // PreparaEcuacion: the working text is the checker's normalised Expr.
    if (!sintaxis_->SintaxEcu(ecuacion)) {
      errNumber_ = sintaxis_->ErrNumber();
      errLin_ = sintaxis_->ErrLin();
      errCol_ = sintaxis_->ErrCol();
      errLen_ = sintaxis_->ErrLen();
      errDesc_ = sintaxis_->ErrDesc();
      return "";
    }
    const std::string expr = Utf8ACp1252(sintaxis_->Expr());
    const std::string difer = Utf8ACp1252(NombreDifer());
    if (CuentaVar(expr, EnMayusculas(difer)) > 0) throw Fallo{1};

    // MarcaEcuacion: the derivative of L-(R) is pending.
    const std::size_t igual = expr.find('=');
    std::string w = "@(" + expr.substr(0, igual) + "-(" + expr.substr(igual + 1) + "))@";
    if (pasToPas_) {
      std::string paso = w + " = 0";
      ReemplazaTodo(paso, "@(", "");
      ReemplazaTodo(paso, ")@", "");
      AgregaPaso(paso + " -->");
    }
    std::size_t copiado = 0;
    for (std::size_t p1 = w.find('@'); p1 != std::string::npos; p1 = w.find('@')) {
      if (pasToPas_) {
        std::string paso = w;
        ReemplazaTodo(paso, "@(", "D(");
        ReemplazaTodo(paso, ")@", ")");
        AgregaPaso(std::string(SinParentesis(paso)) + " = ");
      }
      // SeparaMarca: prefix "@(" inner ")@" suffix.
      const std::size_t p2 = w.find('@', p1 + 1);
      const std::string interior = w.substr(p1 + 2, p2 - p1 - 3);
      const std::string d = ResuelveNivel(std::string(SinParentesis(interior)));
      w = w.substr(0, p1) + d + w.substr(p2 + 1);
      if (w.size() > kMaxTexto) throw Fallo{5};
      copiado += w.size();
      if (copiado > kMaxTrabajoDerivada) throw Fallo{5};
    }
    if (pasToPas_) AgregaPaso(std::string(SinParentesis(w)) + " = 0 -->");

    const std::string resultado = calc_->Desp_axNb(Cp1252AUtf8(w), NombreDifer());
    if (calc_->ErrNumber() != 0) {
      const std::int32_t n = calc_->ErrNumber();
      throw Fallo{n == kErrTextoExcesivo || n == kErrAnidamiento ? 5 : 3};
    }
    if (pasToPas_) AgregaPaso(difer + " = " + Utf8ACp1252(resultado));
    return resultado;
  } catch (const Fallo& f) {
    Falla(f.codigo);
    return "";
  }
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
  std::string_view recortado = u;
  while (!recortado.empty() && (recortado.front() == ' ' || recortado.front() == '\t'))
    recortado.remove_prefix(1);
  while (!recortado.empty() && (recortado.back() == ' ' || recortado.back() == '\t'))
    recortado.remove_suffix(1);
  const std::string mayus = EnMayusculas(recortado);
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
