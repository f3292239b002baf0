#pragma once
// A numeric reader of the expression language, for tests only: it gives the
// value of a derivative text at a point so that it can be compared with a
// finite difference. It follows the language's grouping (a^b^c is (a^b)^c, a
// leading sign binds looser than "^", an exponent may carry its own sign) and
// gives the functions their mathematical meaning (ArcSec w = arccos(1/w)...),
// since the derivative rules are meant to hold for those. Names of functions,
// constants and variables are compared without regard to case.

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <map>
#include <optional>
#include <string>

namespace prueba {

using Valores = std::map<std::string, long double>; // variable names in lower case

class Evaluador {
public:
  Evaluador(const std::string& texto, const Valores& vars) : t_(texto), vars_(vars) {}

  std::optional<long double> Valor() {
    const long double v = Suma();
    Blancos();
    if (!ok_ || p_ != t_.size() || !std::isfinite(v)) return std::nullopt;
    return v;
  }

private:
  static std::string Minusculas(std::string s) {
    for (char& c : s)
      c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
  }
  void Blancos() {
    while (p_ < t_.size() && (t_[p_] == ' ' || t_[p_] == '\t'))
      ++p_;
  }
  bool Viene(const std::string& s) {
    Blancos();
    if (t_.compare(p_, s.size(), s) != 0) return false;
    p_ += s.size();
    return true;
  }
  long double Falla() {
    ok_ = false;
    return 0;
  }

  // suma ::= termino (("+" | "-") termino)*
  long double Suma() {
    long double v = Termino();
    while (ok_) {
      if (Viene("+"))
        v += Termino();
      else if (Viene("-"))
        v -= Termino();
      else
        break;
    }
    return v;
  }
  // termino ::= signado (("*" | "·" | "/") signado)*
  long double Termino() {
    long double v = Signado();
    while (ok_) {
      if (Viene("*") || Viene("\xC2\xB7"))
        v *= Signado();
      else if (Viene("/"))
        v /= Signado();
      else
        break;
    }
    return v;
  }
  bool Negativo() {
    bool neg = false;
    for (;;) {
      if (Viene("-"))
        neg = !neg;
      else if (!Viene("+"))
        return neg;
    }
  }
  // signado ::= signos potencia
  long double Signado() {
    const bool neg = Negativo();
    const long double v = Potencia();
    return neg ? -v : v;
  }
  // potencia ::= primario ("^" signos primario)*
  long double Potencia() {
    long double v = Primario();
    while (ok_ && Viene("^")) {
      const bool neg = Negativo();
      const long double e = Primario();
      v = std::pow(v, neg ? -e : e);
    }
    return v;
  }
  static bool Letra(unsigned char c) { return std::isalpha(c) || c >= 0x80; }
  // primario ::= "(" suma ")" | función "(" suma ")" | número | constante | variable
  long double Primario() {
    Blancos();
    if (Viene("(")) {
      const long double v = Suma();
      return Viene(")") ? v : Falla();
    }
    if (p_ >= t_.size()) return Falla();
    const unsigned char c = static_cast<unsigned char>(t_[p_]);
    if (std::isdigit(c) || c == '.') return Numero();
    if (!Letra(c)) return Falla();
    const std::size_t ini = p_;
    while (p_ < t_.size() && (Letra(static_cast<unsigned char>(t_[p_])) ||
                              std::isdigit(static_cast<unsigned char>(t_[p_])) || t_[p_] == '_'))
      ++p_;
    const std::string nombre = Minusculas(t_.substr(ini, p_ - ini));
    if (nombre == "pi") return 3.14159265358979L;
    if (nombre == "e") return 2.71828182845905L;
    if (const auto f = Funcion(nombre)) {
      if (!Viene("(")) return Falla();
      const long double w = Suma();
      return Viene(")") ? (*f)(w) : Falla();
    }
    const auto it = vars_.find(nombre);
    return it != vars_.end() ? it->second : Falla();
  }
  // Digits, an optional ".", digits, and an exponent (E or D) with its sign.
  long double Numero() {
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
        s += 'e';
        s.append(t_, p_ + 1, q - p_ - 1);
        p_ = q;
        digitos();
      }
    }
    return s == "." ? Falla() : std::strtold(s.c_str(), nullptr);
  }

  using Fn = long double (*)(long double);
  static std::optional<Fn> Funcion(const std::string& n) {
    static const std::map<std::string, Fn> tabla = {
        {"log", [](long double w) { return std::log10(w); }},
        {"ln", [](long double w) { return std::log(w); }},
        {"sin", [](long double w) { return std::sin(w); }},
        {"cos", [](long double w) { return std::cos(w); }},
        {"tg", [](long double w) { return std::tan(w); }},
        {"sec", [](long double w) { return 1 / std::cos(w); }},
        {"cosec", [](long double w) { return 1 / std::sin(w); }},
        {"ctg", [](long double w) { return 1 / std::tan(w); }},
        {"arcsin", [](long double w) { return std::asin(w); }},
        {"arccos", [](long double w) { return std::acos(w); }},
        {"arctg", [](long double w) { return std::atan(w); }},
        {"arcsec", [](long double w) { return std::acos(1 / w); }},
        {"arccosec", [](long double w) { return std::asin(1 / w); }},
        {"arcctg", [](long double w) { return std::atan2(1.0L, w); }},
        {"sinh", [](long double w) { return std::sinh(w); }},
        {"cosh", [](long double w) { return std::cosh(w); }},
        {"tgh", [](long double w) { return std::tanh(w); }},
        {"sech", [](long double w) { return 1 / std::cosh(w); }},
        {"cosech", [](long double w) { return 1 / std::sinh(w); }},
        {"ctgh", [](long double w) { return 1 / std::tanh(w); }},
        {"arcsinh", [](long double w) { return std::asinh(w); }},
        {"arccosh", [](long double w) { return std::acosh(w); }},
        {"arctgh", [](long double w) { return std::atanh(w); }},
        {"arcsech", [](long double w) { return std::acosh(1 / w); }},
        {"arccosech", [](long double w) { return std::asinh(1 / w); }},
        {"arcctgh", [](long double w) { return std::atanh(1 / w); }},
    };
    const auto it = tabla.find(n);
    if (it == tabla.end()) return std::nullopt;
    return it->second;
  }

  const std::string& t_;
  const Valores& vars_;
  std::size_t p_ = 0;
  bool ok_ = true;
};

// The value of `texto` with the given variables, or nothing when the text is
// not an expression, names an unknown variable or has no finite value there.
inline std::optional<long double> Evalua(const std::string& texto, const Valores& vars) {
  return Evaluador(texto, vars).Valor();
}

} // namespace prueba
