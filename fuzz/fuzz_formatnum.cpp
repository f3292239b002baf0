// The number formatter: FCoef on any text, CFr and RedN on any doubles and
// digit counts. A rounding stays within half a unit of its last place and
// keeps the sign; a fraction is a convergent of the quotient it stands for;
// formatting the numbers of an expression leaves an expression.

#include <cctype>
#include <cmath>
#include <limits>

#include "LectorFuzz.h"
#include "algebra/FormatNum.h"
#include "lang/ConvierteNumero.h"
#include "lang/Errores.h"
#include "lang/SintaxExp.h"

static std::string Num(double x) {
  char b[32];
  return std::string(b, static_cast<std::size_t>(std::snprintf(b, sizeof b, "%.17g", x)));
}

static void CompruebaRedN(FormatNum& f, double x, int n) {
  const double r = f.RedN(x, n);
  // Half a unit of the n-th place (a double keeps 14 decimals at most from 1 up) and a
  // relative error of its own; only a nearest multiple beyond the double range overflows.
  const double media = 0.5 * std::pow(10.0, -(std::fabs(x) >= 1 && n >= 15 ? 14 : n));
  const bool cerca = std::isinf(x) ? r == x
                     : std::isinf(r)
                         ? std::fabs(x) + media > std::numeric_limits<double>::max()
                         : std::fabs(r - x) <= media * (1 + 1e-9) + std::fabs(x) * 1e-15;
  EXIGE(std::isnan(x) || (!std::isnan(r) && (r == 0 || (r > 0) == (x > 0)) && cerca),
        "RedN(" + Num(x) + ", " + std::to_string(n) + ") = " + Num(r));
}

static void CompruebaCFr(FormatNum& f, double num, double den) {
  const std::string t = f.CFr(num, den), caso = "CFr(" + Num(num) + ", " + Num(den) + ") = " + t;
  const double x = num / den, holgura = std::fabs(x) * 1e-13 + 1e-300; // numbers carry 15 digits
  EXIGE(t.empty() == !std::isfinite(x), caso);
  if (t.empty()) return;
  // A whole number (LeeNumero reads any text); the largest doubles round past the range.
  const double n = LeeNumero(t);
  if (t[0] != '(')
    return EXIGE(std::isinf(n) ? std::fabs(x) > 1.7976931348623e308 && (n > 0) == (x > 0)
                               : std::fabs(n - x) <= holgura + 1,
                 caso);
  // A fraction: a convergent p/q of x is within 1/q^2 of it.
  const std::size_t barra = t.find('/');
  EXIGE(barra != std::string::npos && t.back() == ')', caso);
  const double p = LeeNumero(t.substr(1, barra - 1)),
               q = LeeNumero(t.substr(barra + 1, t.size() - barra - 2));
  EXIGE(q >= 2 && p == std::trunc(p) && q == std::trunc(q) &&
            std::fabs(p / q - x) <= 1 / (q * q) + holgura,
        caso);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  LectorFuzz in(datos, tam);
  const std::uint8_t opciones = in.Byte();
  FormatNum f;
  const int cifras = opciones & 1 ? in.Entero32() : in.Byte() % 20, previas = f.CifRed();
  f.CifRed(cifras);
  EXIGE(f.CifRed() == (cifras >= 0 && cifras <= 300 ? cifras : previas), std::to_string(cifras));
  f.OutFracc(opciones & 2);
  if (opciones & 4) {
    const double x = in.Doble(), y = in.Doble();
    CompruebaRedN(f, x, static_cast<std::int16_t>(in.Entre(0, 65535))); // negative ones too
    CompruebaRedN(f, x, f.CifRed());
    CompruebaCFr(f, x, y);
    CompruebaCFr(f, x, 1);
  }
  // A number becomes at most "(p/q)" of two 15-digit numbers with exponents,
  // any other character at most three UTF-8 bytes. Only numbers and comments
  // change (a literal past the double range is copied, not an infinity); the
  // largest doubles round past the range, which the checker refuses.
  const std::string texto = in.Resto(), salida = f.FCoef(texto);
  const auto letras = [](std::string t) {
    std::erase_if(
        t, [](unsigned char c) { return !std::isalpha(c) || (c | 32) == 'e' || (c | 32) == 'd'; });
    return t;
  };
  SintaxExp s;
  EXIGE(salida.size() <= texto.size() * 47 + 8 &&
            (texto.find('\'') != std::string::npos || letras(salida) == letras(texto)) &&
            (!s.SintaxExpr(texto) || s.SintaxExpr(salida) ||
             s.ErrNumber() == NumeroError(ErrAritmetica::Desbordamiento)),
        "«" + Visible(texto) + "» da «" + Visible(salida) + "», " + s.ErrDesc());
  return 0;
}
