// Simplification must not change an expression's value. Random expressions
// are simplified and both texts are evaluated at random points by a small
// evaluator of the expression language that lives here, apart from the
// calculator's own arithmetic, so that a rule that rewrites wrongly cannot
// hide behind the same mistake in the checking code.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <map>
#include <numbers>
#include <optional>
#include <random>
#include <sstream>
#include <string>
#include <utility>

#include "algebra/CalcSimbolic.h"

namespace {

// Recursive descent over the text, in the calculator's grammar: "^" is
// left-associative and binds tighter than a leading sign, and an exponent may
// carry its own sign. Names compare without regard to case. With `ruido`,
// every operation's result is moved by that relative amount, up or down at
// random, as the calculator's 15-digit rounding of the numbers it computes
// may move it: a value that such noise changes is too ill-conditioned to judge
// a rewriting by.
using T = long double;

class Evaluador {
public:
  Evaluador(const std::string& texto, T x, T y, T ruido = 0, unsigned semilla = 1)
      : s_(texto), x_(x), y_(y), ruido_(ruido), azar_(semilla) {}

  // The value at the point, or nothing when the text does not parse.
  std::optional<T> Valor() {
    pos_ = 0;
    ok_ = true;
    finito_ = true;
    Avanza();
    const T v = Suma();
    if (!ok_ || tipo_ != kFin) return std::nullopt;
    return finito_ ? v : std::numeric_limits<T>::quiet_NaN();
  }

private:
  enum Tipo { kFin, kNum, kNombre, kOp, kMal };

  void Avanza() {
    while (pos_ < s_.size() && (s_[pos_] == ' ' || s_[pos_] == '\t'))
      ++pos_;
    lex_.clear();
    if (pos_ >= s_.size()) {
      tipo_ = kFin;
      return;
    }
    const auto digito = [&](std::size_t i) {
      return i < s_.size() && std::isdigit(static_cast<unsigned char>(s_[i]));
    };
    const char c = s_[pos_];
    if (digito(pos_) || (c == '.' && digito(pos_ + 1))) {
      std::size_t i = pos_;
      while (digito(i))
        ++i;
      if (i < s_.size() && s_[i] == '.')
        for (++i; digito(i);)
          ++i;
      std::string numero = s_.substr(pos_, i - pos_);
      if (i < s_.size() && std::strchr("eEdD", s_[i])) {
        std::size_t j = i + 1;
        if (j < s_.size() && (s_[j] == '+' || s_[j] == '-')) ++j;
        if (digito(j)) {
          while (digito(j))
            ++j;
          numero += "E" + s_.substr(i + 1, j - i - 1);
          i = j;
        }
      }
      num_ = static_cast<T>(std::strtold(numero.c_str(), nullptr));
      tipo_ = kNum;
      pos_ = i;
    } else if (std::isalpha(static_cast<unsigned char>(c)) || c == '_') {
      std::size_t i = pos_;
      while (i < s_.size() && (std::isalnum(static_cast<unsigned char>(s_[i])) || s_[i] == '_'))
        ++i;
      for (std::size_t k = pos_; k < i; ++k)
        lex_ += static_cast<char>(std::tolower(static_cast<unsigned char>(s_[k])));
      tipo_ = kNombre;
      pos_ = i;
    } else if (s_.compare(pos_, 2, "\xC2\xB7") == 0) { // the middle dot
      lex_ = "*";
      tipo_ = kOp;
      pos_ += 2;
    } else if (std::strchr("+-*/^()", c)) {
      lex_ = std::string(1, c);
      tipo_ = kOp;
      ++pos_;
    } else {
      tipo_ = kMal;
    }
  }

  bool Es(const char* op) const { return tipo_ == kOp && lex_ == op; }

  T Suma() {
    T v = Termino();
    while (ok_ && (Es("+") || Es("-"))) {
      const bool mas = Es("+");
      Avanza();
      const T r = Termino();
      v = Def(mas ? v + r : v - r);
    }
    return v;
  }

  T Termino() {
    T v = Signado();
    while (ok_ && (Es("*") || Es("/"))) {
      const bool por = Es("*");
      Avanza();
      const T r = Signado();
      v = Def(por ? v * r : v / r);
    }
    return v;
  }

  bool Negativo() {
    bool neg = false;
    while (Es("+") || Es("-")) {
      neg ^= Es("-");
      Avanza();
    }
    return neg;
  }

  T Signado() {
    const bool neg = Negativo();
    T v = Primario();
    while (ok_ && Es("^")) {
      Avanza();
      const bool negExp = Negativo();
      const T e = Primario();
      v = Def(std::pow(v, negExp ? -e : e));
    }
    return neg ? -v : v;
  }

  T Primario() {
    if (!ok_) return 0;
    if (tipo_ == kNum) {
      const T v = num_;
      Avanza();
      return v;
    }
    if (Es("(")) {
      Avanza();
      const T v = Suma();
      Cierra();
      return v;
    }
    if (tipo_ == kNombre) {
      const std::string nombre = lex_;
      Avanza();
      const auto f = Funciones().find(nombre);
      if (f != Funciones().end()) {
        if (!Es("(")) return Falla();
        Avanza();
        const T a = Suma();
        Cierra();
        return Def(f->second(a));
      }
      if (nombre == "x") return x_;
      if (nombre == "y") return y_;
      // The calculator's constants are these 15-digit decimals.
      if (nombre == "pi") return 3.14159265358979L;
      if (nombre == "e") return 2.71828182845905L;
    }
    return Falla();
  }

  void Cierra() {
    if (!Es(")")) Falla();
    Avanza();
  }

  // IEEE infinities can come back to finite values (1/(1/0) is 0), where the
  // calculator rightly refuses the division: any non-finite step leaves the
  // whole expression undefined.
  T Def(T v) {
    // The calculator computes in doubles: beyond their range it overflows.
    if (!std::isfinite(v) || std::fabs(v) > std::numeric_limits<double>::max()) finito_ = false;
    if (ruido_ != 0) v *= 1 + (azar_() % 2 ? ruido_ : -ruido_);
    return v;
  }

  T Falla() {
    ok_ = false;
    return 0;
  }

  using Funcion = T (*)(T);
  static const std::map<std::string, Funcion>& Funciones() {
    static const std::map<std::string, Funcion> tabla = {
        {"log", [](T a) -> T { return std::log10(a); }},
        {"ln", [](T a) -> T { return std::log(a); }},
        {"sin", [](T a) -> T { return std::sin(a); }},
        {"cos", [](T a) -> T { return std::cos(a); }},
        {"tg", [](T a) -> T { return std::tan(a); }},
        {"sec", [](T a) -> T { return 1 / std::cos(a); }},
        {"cosec", [](T a) -> T { return 1 / std::sin(a); }},
        {"ctg", [](T a) -> T { return 1 / std::tan(a); }},
        {"arcsin", [](T a) -> T { return std::asin(a); }},
        {"arccos", [](T a) -> T { return std::acos(a); }},
        {"arctg", [](T a) -> T { return std::atan(a); }},
        {"arcsec", [](T a) -> T { return std::acos(1 / a); }},
        {"arccosec", [](T a) -> T { return std::asin(1 / a); }},
        {"arcctg", [](T a) -> T { return std::numbers::pi_v<T> / 2 - std::atan(a); }},
        {"sinh", [](T a) -> T { return std::sinh(a); }},
        {"cosh", [](T a) -> T { return std::cosh(a); }},
        {"tgh", [](T a) -> T { return std::tanh(a); }},
        {"sech", [](T a) -> T { return 1 / std::cosh(a); }},
        {"cosech", [](T a) -> T { return 1 / std::sinh(a); }},
        {"ctgh", [](T a) -> T { return 1 / std::tanh(a); }},
        {"arcsinh", [](T a) -> T { return std::asinh(a); }},
        {"arccosh", [](T a) -> T { return std::acosh(a); }},
        {"arctgh", [](T a) -> T { return std::atanh(a); }},
        {"arcsech", [](T a) -> T { return std::acosh(1 / a); }},
        {"arccosech", [](T a) -> T { return std::asinh(1 / a); }},
        {"arcctgh", [](T a) -> T { return std::atanh(1 / a); }},
    };
    return tabla;
  }

  const std::string& s_;
  T x_, y_, ruido_;
  std::minstd_rand azar_;
  std::size_t pos_ = 0;
  bool ok_ = true, finito_ = true;
  Tipo tipo_ = kFin;
  std::string lex_;
  T num_ = 0;
};

std::optional<T> Evalua(const std::string& texto, T x, T y, T ruido = 0, unsigned semilla = 1) {
  return Evaluador(texto, x, y, ruido, semilla).Valor();
}

// The evaluator itself must read the language as the calculator does.
TEST(PropiedadCalc, EvaluatorReadsTheLanguage) {
  const struct {
    const char* texto;
    double valor;
  } casos[] = {
      {"2^3^2", 64},
      {"-2^2", -4},
      {"2^-1", .5},
      {"2^--1", 2},
      {"-+-3", 3},
      {"1-2-3", -4},
      {"12/2/3", 2},
      {"2*(3+x)", 8},
      {"1.5E+1", 15},
      {"7D2", 700},
      {".5·4", 2},
      {"SIN(0)+cos(0)", 1},
      {"Ln(e)", 1},
      {"Log(1000)", 3},
      {"PI-pi", 0},
      {"y^x", 2},
      {"ArcCtg(1)", std::numbers::pi / 4},
  };
  for (const auto& c : casos) {
    const auto v = Evalua(c.texto, 1.0, 2.0);
    ASSERT_TRUE(v) << c.texto;
    EXPECT_NEAR(*v, c.valor, 1e-12) << c.texto;
  }
  for (const char* malo : {"", "x+", "(x", "Sin x", "x y", "z", "2$"})
    EXPECT_FALSE(Evalua(malo, 1.0, 2.0)) << malo;
}

// Random expressions over x and y, with a fixed seed so that a failure can
// be reproduced.
class Generador {
public:
  explicit Generador(unsigned semilla) : g_(semilla) {}

  std::string Expr(int prof) {
    if (prof <= 0 || Uno(5) == 0) return Hoja();
    switch (Uno(11)) {
    case 0:
    case 1:
      return Expr(prof - 1) + "+" + Expr(prof - 1);
    case 2:
      return Expr(prof - 1) + "-" + Expr(prof - 1);
    case 3:
    case 4:
      return Operando(prof - 1) + (Uno(8) ? "*" : "·") + Operando(prof - 1);
    case 5:
      return Operando(prof - 1) + "/" + Operando(prof - 1);
    case 6:
    case 7: {
      // Quotients are raised too, and chains are common: powers associate to
      // the left, (b^m)^n, and a chain such as ^-1^-1 gives the base back.
      static const char* const exps[] = {"2", "3", "-1", "(-1)",  "(-2)", "-1",
                                         "0", "1", "-2", "(1+1)", "-1",   "(-1)"};
      const std::string base =
          Uno(3) ? Operando(prof - 1) : "(" + Operando(prof - 1) + "/" + Operando(prof - 1) + ")";
      const std::string pot = base + "^" + exps[Uno(12)];
      return Uno(2) ? pot : pot + "^" + exps[Uno(12)];
    }
    case 8:
      return "-" + Operando(prof - 1);
    case 9: {
      static const char* const fs[] = {"Sin", "Cos", "ArcTg", "SinH", "CosH", "sin", "ARCTG"};
      return std::string(fs[Uno(7)]) + "(" + Expr(prof - 1) + ")";
    }
    default:
      return std::string(Uno(2) ? "Ln" : "Log") + "(" + Positivo(prof - 1) + ")";
    }
  }

private:
  int Uno(int n) { return static_cast<int>(g_() % static_cast<unsigned>(n)); }

  // Mostly bracketed; a bare operand tests the precedence of both readers.
  std::string Operando(int prof) {
    const std::string e = Expr(prof);
    return Uno(4) ? "(" + e + ")" : e;
  }

  std::string Hoja() {
    static const char* const hojas[] = {"x", "y",  "x",    "y",   "X",    "1", "2",  "3",
                                        "5", ".5", "0.25", "1.5", "2.50", "0", "pi", "e"};
    return hojas[Uno(16)];
  }

  // A positive value wherever x and y are: positive leaves under "+", "*",
  // "/" and integer powers, however they group.
  std::string Positivo(int prof) {
    static const char* const hojas[] = {"x", "y", "2", ".5", "pi"};
    if (prof <= 0 || Uno(3) == 0) return hojas[Uno(5)];
    switch (Uno(5)) {
    case 0:
      return Positivo(prof - 1) + "+" + Positivo(prof - 1);
    case 1:
      return "(" + Positivo(prof - 1) + ")*" + Positivo(prof - 1);
    case 2:
      return Positivo(prof - 1) + "/(" + Positivo(prof - 1) + ")";
    case 3:
      return "(" + Positivo(prof - 1) + ")^" + (Uno(2) ? "2" : "-1");
    default:
      return "CosH(" + Expr(prof - 1) + ")";
    }
  }

  std::mt19937 g_;
};

// Coefficients carry 15 digits; 1e-7 leaves room for the rounding to be
// amplified by the expressions that pass the conditioning test below.
bool Cerca(T a, T b, T rel = 1e-7L) {
  return std::fabs(a - b) <= rel * std::max(std::fabs(a), std::fabs(b)) + 1e-9L;
}

// Simplifies many expressions and compares values at random points; returns
// how many samples were compared, for the check that the run was not empty.
int CompruebaValores(bool numerico, unsigned semilla) {
  CalcSimbolic calc;
  if (numerico) calc.CalcExpNum(true);
  Generador gen(semilla);
  std::mt19937 puntos(semilla + 1);
  std::uniform_real_distribution<double> rango(0.3, 2.5);
  int comparados = 0, fallos = 0;
  for (int i = 0; i < 2000 && fallos < 10; ++i) {
    const std::string entrada = gen.Expr(4);
    const std::string salida = calc.Calc(entrada);
    const std::string otra = salida.empty() ? "" : calc.Calc(salida);
    for (int p = 0; p < 4; ++p) {
      const double x = rango(puntos), y = rango(puntos);
      const auto vin = Evalua(entrada, x, y);
      const auto vr1 = Evalua(entrada, x, y, 1e-13L, 1), vr2 = Evalua(entrada, x, y, 1e-13L, 2);
      if (!vin || !vr1 || !vr2) {
        ADD_FAILURE() << "generated text does not parse: " << entrada;
        return comparados;
      }
      // Undefined, too large, or so ill-conditioned that rounding noise
      // moves it: no rewriting can be judged there.
      if (!std::isfinite(*vin) || std::fabs(*vin) > 1e6L || !Cerca(*vin, *vr1, 1e-8L) ||
          !Cerca(*vin, *vr2, 1e-8L))
        continue;
      std::ostringstream donde;
      donde.precision(17);
      donde << "\n  input:  " << entrada << "\n  output: " << salida << "\n  again:  " << otra
            << "\n  at x=" << x << " y=" << y << " (CalcExpNum " << numerico << "), input value "
            << *vin;
      if (salida.empty()) {
        ADD_FAILURE() << "refused a finite expression, error " << calc.ErrNumber() << " "
                      << calc.ErrDesc() << donde.str();
        ++fallos;
        break;
      }
      const auto vout = Evalua(salida, x, y);
      const auto votra = otra.empty() ? std::nullopt : Evalua(otra, x, y);
      if (!vout || !votra) {
        ADD_FAILURE() << "result does not parse or re-simplify" << donde.str();
        ++fallos;
        break;
      }
      if (!Cerca(*vin, *vout) || !Cerca(*vin, *votra)) {
        ADD_FAILURE() << "value changed: output " << *vout << ", again " << *votra << donde.str();
        ++fallos;
        break;
      }
      ++comparados;
    }
  }
  return comparados;
}

// Texts whose rewriting goes through rarely met paths: a power that gives its
// base back in parentheses, a base holding "/", cancelling terms. Each must
// keep its value, whatever text the calculator chooses for it.
TEST(PropiedadCalc, CornerCasesKeepTheirValue) {
  const char* const casos[] = {
      "1/(x/y)^-1^-1+1",     "1+1/(x/y)^-1^-1", "(x/y)^-1^-1/2+1",     "y/(2/x)^-1^-1-y",
      "((x/y)^-1)^-1/(x+1)", "(x/y)^-1^-1*2+1", "(x^2/y)^3+1",         "(x^2/y)^-1*x",
      "x*x/x+1/x",           "1/x+1/y-1/(x*y)", "(x+1)*(x-1)/(x+1)",   "2^-1^-2*x",
      "-x^2^-1+x",           "(x-y)/(y-x)+x",   "((2*x)^-1)^-1*(x+1)",
  };
  CalcSimbolic calc;
  for (const char* entrada : casos) {
    const std::string salida = calc.Calc(entrada);
    ASSERT_EQ(calc.ErrNumber(), 0) << entrada << ": " << calc.ErrDesc();
    for (const auto& [x, y] : {std::pair{.7L, 1.9L}, {1.3L, .4L}, {2.2L, 1.1L}}) {
      const auto vin = Evalua(entrada, x, y), vout = Evalua(salida, x, y);
      ASSERT_TRUE(vin && vout) << entrada << " -> " << salida;
      if (!Cerca(*vin, *vout)) {
        ADD_FAILURE() << "value changed\n  input:  " << entrada << "\n  output: " << salida
                      << "\n  at x=" << static_cast<double>(x) << " y=" << static_cast<double>(y)
                      << ": " << *vin << " became " << *vout;
        break;
      }
    }
  }
}

TEST(PropiedadCalc, SimplifyingKeepsTheValue) {
  EXPECT_GT(CompruebaValores(false, 20240611), 4000);
}

TEST(PropiedadCalc, SimplifyingWithNumericEvaluationKeepsTheValue) {
  EXPECT_GT(CompruebaValores(true, 777), 4000);
}

} // namespace
