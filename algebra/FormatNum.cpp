#include "algebra/FormatNum.h"

#include <cmath>
#include <vector>

#include <gmpxx.h>

#include "algebra/TextoNumero.h"
#include "lang/ConvierteNumero.h"

namespace {

enum : int { kFinTexto = 1, kNumero, kProducto }; // the codes of the number reader's lexer

// Written with 15 significant digits and read back: removes binary noise
// such as 0.30000000000000004 before any digit is counted.
double IdaYVuelta(double x) { return LeeNumero(TextoNumero(x)); }

bool TieneFraccion(double x) { return x != std::trunc(x); }

// Division of whole numbers truncates toward zero, as Fix does; mpz's
// quotient already does.
double Trunca(double cociente) { return std::trunc(cociente); }
mpz_class Trunca(mpz_class cociente) { return cociente; }

} // namespace

FormatNum::FormatNum() {
  lex_.IndFA(kFinTexto);
  lex_.IndNum(kNumero);
  lex_.AñadeOpr(kProducto, "*");
  lex_.AñadeOpr(kProducto, "·");
}

void FormatNum::CifRed(int valor) {
  if (valor >= 0 && valor <= 300) cifRed_ = valor;
}

std::string FormatNum::FCoef(const std::string& texto) {
  lex_.Buffer(texto);
  std::string out;
  for (int tipo = lex_.SgtToken(); tipo != kFinTexto; tipo = lex_.SgtToken()) {
    if (tipo != kNumero) {
      out += lex_.Lex();
      continue;
    }
    const double valor = LeeNumero(lex_.LexBytes());
    // A literal beyond the double range has no digits to round: it is copied
    // as written, like any other token.
    if (!std::isfinite(valor)) {
      out += lex_.Lex();
      continue;
    }
    out += outFracc_ ? Fraccion(valor) : TextoNumero(RedN(valor, cifRed_));
  }
  lex_.Buffer("");
  return out;
}

double FormatNum::RedN(double x, int n) {
  if (std::fabs(x) >= 1 && n >= 15) n = 14; // a double carries no more than that
  // A negative count rounds to tens, hundreds...: whole numbers round too.
  if ((n >= 0 && !TieneFraccion(x)) || !std::isfinite(x)) return x;
  const double escala = std::pow(10.0, n);
  // Below the smallest double 10^n is 0: every double is less than half a
  // unit of that place away from 0.
  if (escala == 0) return std::copysign(0.0, x);
  const double y = x * escala;
  // Where x*10^n leaves the double range, x has no digit left at the n-th
  // place to round: it is its own rounding.
  if (!std::isfinite(y) || !std::isfinite(escala)) return x;
  const double entera = std::trunc(y), f = y - entera;
  if (f >= 0.5) return (entera + 1) / escala;
  if (f <= -0.5) return (entera - 1) / escala;
  return entera / escala;
}

std::string FormatNum::CFr(double numerador, double denominador) {
  const double x = numerador / denominador;
  if (!std::isfinite(x)) return "";
  return Fraccion(x);
}

namespace {

// The measure of a convergent p/q, |q^2 (x - p/q)|, and the bound 1 that a
// convergent must beat. On doubles (N0 and D0 below 2^53) it is the double
// arithmetic of the formula. On exact integers it is |q (N0 q - p D0)|, the
// measure times D0, against the bound D0: with hundreds of decimal places
// x - p/q is beyond what a double tells, and the first convergent 0/1 would
// win for every value below 1.
double Medida(double p, double q, double x, double, double) {
  return std::fabs(q * q * (x - p / q));
}
double CotaMedida(double) { return 1.0; }
mpz_class Medida(const mpz_class& p, const mpz_class& q, double, const mpz_class& n0,
                 const mpz_class& d0) {
  return abs(q * (n0 * q - p * d0));
}
mpz_class CotaMedida(const mpz_class& d0) { return d0; }

double AproximaDoble(double n) { return n; }
double AproximaDoble(const mpz_class& n) { return n.get_d(); }

std::string TextoEntero(double n) { return TextoNumero(n); }
// A whole number in the number format while that says it exactly (15
// significant digits or fewer, as in 1E+16); otherwise with every digit, so
// that the fraction read back is the value it stands for.
std::string TextoEntero(const mpz_class& n) {
  const std::string cifras = n.get_str();
  const std::size_t significativas =
      cifras.find_last_not_of('0') + 1 - (cifras.front() == '-' ? 1 : 0);
  return significativas <= 15 ? TextoNumero(AproximaDoble(n)) : cifras;
}

// The continued fraction of x = N0/D0 by Euclid's algorithm, and the
// earliest convergent with the smallest measure below the bound, written as
// "(p/q)", or p when q is 1. Entero holds N0, D0 and every convergent
// exactly.
template <class Entero> std::string FraccionExacta(double x, const Entero& n0, const Entero& d0) {
  std::vector<Entero> a;
  for (Entero num = n0, den = d0; den != 0;) {
    const Entero ak = Trunca(num / den);
    Entero r = num - den * ak;
    a.push_back(ak);
    num = std::move(den);
    den = std::move(r);
  }
  auto mejor = CotaMedida(d0);
  Entero p = a[0], q = 1;
  Entero pAnt = 1, qAnt = 0; // p(k-2), q(k-2) seeds: p1 = a1*a0 + 1, q1 = a1
  Entero pk = a[0], qk = 1;
  for (std::size_t k = 0; k < a.size(); ++k) {
    if (k > 0) {
      Entero pn = a[k] * pk + pAnt, qn = a[k] * qk + qAnt;
      pAnt = std::move(pk), qAnt = std::move(qk);
      pk = std::move(pn), qk = std::move(qn);
    }
    if (const auto m = Medida(pk, qk, x, n0, d0); m < mejor) {
      mejor = m;
      p = pk, q = qk;
    }
  }
  if (q < 0) p = -p, q = -q;
  // Below about 1E-293 the value's own denominator passes the double range:
  // no fraction of it could be read back, so the number is written as it is.
  if (!std::isfinite(AproximaDoble(q))) return TextoNumero(x);
  if (q == 1) return TextoEntero(p);
  return "(" + TextoEntero(p) + "/" + TextoEntero(q) + ")";
}

} // namespace

// x's shortest 15-digit decimal form N0/10^n, then its continued fraction.
// Up to 15 decimal places N0 and D0 are exact as doubles and the writer
// works on them; beyond (a value below .1 with 15 digits, or 1.5E-300)
// 10^n passes 2^53 and everything runs on exact integers, so that a
// non-zero value is never written as 0 nor as a fraction that is not its own.
std::string FormatNum::Fraccion(double x) {
  // Near the top of the double range the 15-digit form rounds past it; such
  // a number is whole anyway.
  if (const double leido = IdaYVuelta(x); std::isfinite(leido))
    x = leido;
  else
    return TextoNumero(x);
  if (!TieneFraccion(x)) return TextoNumero(x);
  const CifrasDecimales c = Cifras15(x);
  const int decimales = static_cast<int>(c.digitos.size()) - 1 - c.exponente;
  if (decimales <= 15) {
    const double d0 = std::pow(10.0, decimales);
    return FraccionExacta(x, std::round(x * d0), d0);
  }
  mpz_class d0;
  mpz_ui_pow_ui(d0.get_mpz_t(), 10, static_cast<unsigned long>(decimales));
  return FraccionExacta(x, mpz_class(c.negativo ? "-" + c.digitos : c.digitos), d0);
}
