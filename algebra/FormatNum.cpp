#include "algebra/FormatNum.h"

#include <cmath>
#include <vector>

#include "algebra/TextoNumero.h"
#include "lang/ConvierteNumero.h"

namespace {

constexpr int kFinTexto = 1, kNumero = 2, kProducto = 3;

// Written with 15 significant digits and read back: removes binary noise
// such as 0.30000000000000004 before any digit is counted.
double IdaYVuelta(double x) { return LeeNumero(TextoNumero(x)); }

bool TieneFraccion(double x) { return x != std::trunc(x); }

// The number of decimal places of x's shortest 15-digit decimal form.
int Decimales(double x) {
  int cuenta = 0;
  while (TieneFraccion(x)) {
    ++cuenta;
    x = IdaYVuelta(x * 10);
  }
  return cuenta;
}

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

// The continued fraction of x, by Euclid's algorithm on its decimal form,
// and the earliest convergent p/q with the smallest |q^2 (x - p/q)| below 1.
std::string FormatNum::Fraccion(double x) {
  // Near the top of the double range the 15-digit form rounds past it; such
  // a number is whole anyway.
  if (const double leido = IdaYVuelta(x); std::isfinite(leido))
    x = leido;
  else
    return TextoNumero(x);
  if (!TieneFraccion(x)) return TextoNumero(x);
  const double d0 = std::pow(10.0, Decimales(x));
  if (!std::isfinite(d0) || !std::isfinite(x * d0)) return TextoNumero(x);

  std::vector<double> a;
  for (double num = std::round(x * d0), den = d0; a.size() < 64;) {
    const double ak = std::trunc(num / den);
    const double r = num - den * ak;
    a.push_back(ak);
    num = den;
    den = r;
    if (std::fabs(r) < 0.5) break;
  }
  double mejor = 1.0, p = a[0], q = 1;
  double pAnt = 1, qAnt = 0; // p(k-2), q(k-2) seeds: p1 = a1*a0 + 1, q1 = a1
  double pk = a[0], qk = 1;
  for (std::size_t k = 0; k < a.size(); ++k) {
    if (k > 0) {
      const double pn = a[k] * pk + pAnt, qn = a[k] * qk + qAnt;
      pAnt = pk, qAnt = qk;
      pk = pn, qk = qn;
    }
    const double m = std::fabs(qk * qk * (x - pk / qk));
    if (m < mejor) {
      mejor = m;
      p = pk, q = qk;
    }
  }
  if (q < 0) p = -p, q = -q;
  if (q == 1) return TextoNumero(p);
  return "(" + TextoNumero(p) + "/" + TextoNumero(q) + ")";
}
