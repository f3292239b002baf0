#pragma once
// A numeric reader of the expression language, for tests only, apart from the
// program's own arithmetic so that a wrong rewriting cannot hide behind the
// same mistake in the checking code. It follows the language's grouping (a^b^c
// is (a^b)^c, a leading sign binds looser than "^", an exponent may carry its
// own sign) and gives the functions their mathematical meaning (ArcSec w =
// arccos(1/w)...). Names compare without regard to case. Below it, the one
// generator of random expressions that the property tests share.

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <utility>

namespace prueba {

using T = long double;
using Valores = std::map<std::string, T>; // variable names in lower case

class Evaluador {
public:
  // With `ruido`, every operation's result is moved by that relative amount,
  // up or down at random, as the calculator's 15-digit rounding may move it.
  Evaluador(const std::string& texto, const Valores& vars, T ruido, unsigned semilla)
      : t_(texto), vars_(vars), ruido_(ruido), azar_(semilla) {}

  // Nothing when the text is not an expression or names an unknown variable;
  // NaN when some step of it has no finite value.
  std::optional<T> Valor() {
    const T v = Suma();
    Viene("");
    if (!ok_ || p_ != t_.size()) return std::nullopt;
    return finito_ ? v : std::numeric_limits<T>::quiet_NaN();
  }

private:
  static constexpr const char* kPunto = "\xC2\xB7"; // the middle dot, a product
  bool Viene(const char* s) {
    while (p_ < t_.size() && (t_[p_] == ' ' || t_[p_] == '\t'))
      ++p_;
    if (t_.compare(p_, std::strlen(s), s) != 0) return false;
    p_ += std::strlen(s);
    return true;
  }
  T Falla() { return ok_ = false; }
  // IEEE infinities can come back to finite values (1/(1/0) is 0), where the
  // program rightly refuses: any non-finite step, or one beyond the range of
  // doubles, leaves the whole expression undefined.
  T Def(T v) {
    if (!std::isfinite(v) || std::fabs(v) > std::numeric_limits<double>::max()) finito_ = false;
    return ruido_ != 0 ? v * (1 + (azar_() % 2 ? ruido_ : -ruido_)) : v;
  }

  T Suma() {
    T v = Termino();
    for (bool mas; ok_ && ((mas = Viene("+")) || Viene("-"));)
      v = Def(mas ? v + Termino() : v - Termino());
    return v;
  }
  T Termino() {
    T v = Signado();
    for (bool por; ok_ && ((por = Viene("*") || Viene(kPunto)) || Viene("/"));)
      v = Def(por ? v * Signado() : v / Signado());
    return v;
  }
  bool Negativo() {
    for (bool neg = false;;)
      if (Viene("-"))
        neg = !neg;
      else if (!Viene("+"))
        return neg;
  }
  T Signado() {
    const bool neg = Negativo();
    T v = Primario();
    while (ok_ && Viene("^")) {
      const bool negExp = Negativo();
      const T e = Primario();
      v = Def(std::pow(v, negExp ? -e : e));
    }
    return neg ? -v : v;
  }
  bool Letra(std::size_t i) const {
    const unsigned char c = static_cast<unsigned char>(t_[i]);
    return (std::isalnum(c) || c == '_' || c >= 0x80) && t_.compare(i, 2, kPunto) != 0;
  }
  T Primario() {
    if (Viene("(")) {
      const T v = Suma();
      return Viene(")") ? v : Falla();
    }
    if (p_ >= t_.size()) return Falla();
    if (std::isdigit(static_cast<unsigned char>(t_[p_])) || t_[p_] == '.') return Numero();
    if (!Letra(p_)) return Falla();
    std::string nombre;
    for (; p_ < t_.size() && Letra(p_); ++p_)
      nombre += static_cast<char>(std::tolower(static_cast<unsigned char>(t_[p_])));
    // The program's constants are these 15-digit decimals.
    if (nombre == "pi") return 3.14159265358979L;
    if (nombre == "e") return 2.71828182845905L;
    if (const auto f = Funcion(nombre, 1); f) {
      if (!Viene("(")) return Falla();
      const T w = Suma();
      return Viene(")") ? Def(*Funcion(nombre, w)) : Falla();
    }
    const auto it = vars_.find(nombre);
    return it != vars_.end() ? it->second : Falla();
  }
  // Digits, an optional ".", digits, and an exponent (E or D) with its sign.
  T Numero() {
    std::string s;
    auto digitos = [&] {
      while (p_ < t_.size() && std::isdigit(static_cast<unsigned char>(t_[p_])))
        s += t_[p_++];
    };
    digitos();
    if (p_ < t_.size() && t_[p_] == '.') s += t_[p_++], digitos();
    if (p_ < t_.size() && std::strchr("eEdD", t_[p_])) {
      std::size_t q = p_ + 1;
      if (q < t_.size() && (t_[q] == '+' || t_[q] == '-')) ++q;
      if (q < t_.size() && std::isdigit(static_cast<unsigned char>(t_[q]))) {
        s += 'e' + t_.substr(p_ + 1, q - p_ - 1);
        p_ = q;
        digitos();
      }
    }
    return s == "." ? Falla() : std::strtold(s.c_str(), nullptr);
  }

  // A function's value, or nothing for a name that is none. Apart from Log
  // and Ln, a name is a base (Sin, Cos, Tg, or their reciprocals Cosec, Sec,
  // Ctg), with "Arc" before it for the inverse and "H" after it for the
  // hyperbolic one; ArcCtg takes its values in (0, pi).
  static std::optional<T> Funcion(std::string f, T w) {
    if (f == "log") return std::log10(w);
    if (f == "ln") return std::log(w);
    if (f == "arcctg") return std::atan2(1.0L, w);
    static const std::string bases[] = {"sin", "cos", "tg", "cosec", "sec", "ctg"};
    const bool inversa = f.starts_with("arc"), hiperbolica = f.ends_with("h");
    f = f.substr(inversa ? 3 : 0, f.size() - (inversa ? 3 : 0) - (hiperbolica ? 1 : 0));
    const auto b = std::find(std::begin(bases), std::end(bases), f) - std::begin(bases);
    if (b == 6) return std::nullopt;
    const bool reciproca = b >= 3;
    const int k = b % 3;
    if (inversa) {
      const T u = reciproca ? 1 / w : w;
      return hiperbolica ? (k == 0   ? std::asinh(u)
                            : k == 1 ? std::acosh(u)
                                     : std::atanh(u))
                         : (k == 0   ? std::asin(u)
                            : k == 1 ? std::acos(u)
                                     : std::atan(u));
    }
    const T v = hiperbolica ? (k == 0   ? std::sinh(w)
                               : k == 1 ? std::cosh(w)
                                        : std::tanh(w))
                            : (k == 0   ? std::sin(w)
                               : k == 1 ? std::cos(w)
                                        : std::tan(w));
    return reciproca ? 1 / v : v;
  }

  const std::string& t_;
  const Valores& vars_;
  T ruido_;
  std::minstd_rand azar_;
  std::size_t p_ = 0;
  bool ok_ = true, finito_ = true;
};

// See Evaluador::Valor.
inline std::optional<T> Valor(const std::string& texto, const Valores& vars, T ruido = 0,
                              unsigned semilla = 1) {
  return Evaluador(texto, vars, ruido, semilla).Valor();
}

// The finite value of `texto`, or nothing when it is not an expression or has
// no finite value there.
inline std::optional<T> Evalua(const std::string& texto, const Valores& vars) {
  const auto v = Valor(texto, vars);
  return v && !std::isnan(*v) ? v : std::nullopt;
}

// Random expressions in the language, from a fixed seed so that a failure can
// be reproduced: sums, products (with "*" or the middle dot), quotients,
// powers and chains of powers (a chain such as ^-1^-1 gives its base back),
// variable exponents, signs, numbers in several spellings, the constants, and
// all 26 functions, each name in some case and with an argument shape that
// keeps it inside its domain and away from its poles whatever value the inner
// expression "@" takes, but those named in `fuera` (" Sin Cos "). With "^-"
// in `fuera`, a signed exponent is always bracketed.
class Generador {
public:
  Generador(unsigned semilla, std::string variables, std::string fuera = "")
      : azar_(semilla), vars_(std::move(variables)), fuera_(std::move(fuera)) {}

  std::string Expr(int prof) {
    if (prof <= 0 || Uno(6) == 0) return Hoja();
    switch (Uno(12)) {
    case 0:
    case 1:
      return Expr(prof - 1) + (Uno(3) ? "+" : "-") + Expr(prof - 1);
    case 2:
    case 3:
      return Operando(prof - 1) + (Uno(6) ? "*" : "\xC2\xB7") + Operando(prof - 1);
    case 4: // a quotient, its denominator kept apart from 0 or not
      return Operando(prof - 1) + "/" + (Uno(2) ? Operando(prof - 1) : Forma("(1+(@)^2)", prof));
    case 5:
    case 6: {
      static const char* const exps[] = {"2", "3", "-1", "(-1)", "(-2)", "0", "1", "-2", "(1+1)"};
      const std::string base =
          Uno(3) ? Operando(prof - 1) : "(" + Operando(prof - 1) + "/" + Operando(prof - 1) + ")";
      const std::string pot = base + "^" + Exponente(exps[Uno(9)]);
      return Uno(2) ? pot : pot + "^" + Exponente(exps[Uno(9)]);
    }
    case 7: // a variable exponent over a positive base
      return (Uno(2) ? std::string("2") : Forma("(1+(@)^2)", prof)) + "^" +
             Forma("(1/(2+(@)^2))", prof);
    case 8:
      return "-" + Operando(prof - 1);
    default: {
      const char* nombre;
      const char* forma;
      do
        std::tie(nombre, forma) = kFunciones[Uno(26)];
      while (fuera_.find(" " + std::string(nombre) + " ") != std::string::npos);
      std::string f = nombre;
      if (Uno(4) == 0)
        for (char& c : f)
          c = static_cast<char>(Uno(2) ? std::toupper(static_cast<unsigned char>(c))
                                       : std::tolower(static_cast<unsigned char>(c)));
      return f + "(" + Forma(forma, prof) + ")";
    }
    }
  }
  T Punto() { return std::uniform_real_distribution<T>(0.3L, 2.5L)(azar_); }

  // Argument shapes: any real; within (0, 1/2]; at least 1; at least 2; within [1/2, 1).
  static constexpr const char* kLibre = "@";
  static constexpr const char* kAcotado = "1/(2+(@)^2)";
  static constexpr const char* kPositivo = "1+(@)^2";
  static constexpr const char* kMayor = "2+(@)^2";
  static constexpr const char* kLejos = "1-1/(2+(@)^2)";
  static constexpr std::pair<const char*, const char*> kFunciones[26] = {
      {"Log", kPositivo},       {"Ln", kPositivo},    {"Sin", kLibre},       {"Cos", kLibre},
      {"Tg", kAcotado},         {"Sec", kAcotado},    {"Cosec", kLejos},     {"Ctg", kLejos},
      {"ArcSin", kAcotado},     {"ArcCos", kAcotado}, {"ArcTg", kLibre},     {"ArcSec", kMayor},
      {"ArcCosec", kMayor},     {"ArcCtg", kLibre},   {"SinH", kAcotado},    {"CosH", kAcotado},
      {"TgH", kLibre},          {"SecH", kLibre},     {"CosecH", kPositivo}, {"CtgH", kLejos},
      {"ArcSinH", kLibre},      {"ArcCosH", kMayor},  {"ArcTgH", kAcotado},  {"ArcSecH", kAcotado},
      {"ArcCosecH", kPositivo}, {"ArcCtgH", kMayor}};

private:
  int Uno(int n) { return std::uniform_int_distribution<int>(0, n - 1)(azar_); }
  // Mostly bracketed; a bare operand tests the precedence of both readers.
  std::string Operando(int prof) {
    const std::string e = Expr(prof);
    return Uno(4) ? "(" + e + ")" : e;
  }
  std::string Exponente(const std::string& e) {
    return e[0] == '-' && fuera_.find(" ^- ") != std::string::npos ? "(" + e + ")" : e;
  }
  std::string Hoja() {
    static const char* const numeros[] = {"1",   "2",    "3", ".5", "0.25",
                                          "1.5", "2.50", "0", "pi", "e"};
    if (Uno(2)) return numeros[Uno(10)];
    const char v = vars_[static_cast<std::size_t>(Uno(static_cast<int>(vars_.size())))];
    return std::string(1, Uno(8) ? v : static_cast<char>(std::toupper(v)));
  }
  // The shape with one expression a level shallower in place of "@": written
  // once, since a shape that repeats it makes common denominators grow fast.
  std::string Forma(std::string forma, int prof) {
    return forma.replace(forma.find('@'), 1, Expr(prof - 1));
  }

  std::mt19937 azar_;
  std::string vars_;
  std::string fuera_;
};

} // namespace prueba
