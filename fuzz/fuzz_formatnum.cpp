// The number formatter: FCoef on any text, CFr and RedN on any doubles and
// digit counts. A rounding stays within half a unit of its last place and
// keeps the sign; a fraction is a convergent of the quotient it stands for;
// formatting the numbers of an expression leaves an expression.

#include <cctype>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

#include "LectorFuzz.h"
#include "algebra/FormatNum.h"
#include "lang/ConvierteNumero.h"
#include "lang/Errores.h"
#include "lang/SintaxExp.h"

namespace {

std::string Num(double x) {
  char b[64];
  std::snprintf(b, sizeof b, "%.17g", x);
  return b;
}

void CompruebaRedN(FormatNum& f, double x, int n) {
  const double r = f.RedN(x, n);
  const std::string caso = "RedN(" + Num(x) + ", " + std::to_string(n) + ") = " + Num(r);
  if (std::isnan(x)) return;
  EXIGE(!std::isnan(r) && (r == 0 || (r > 0) == (x > 0)), caso);
  // Half a unit of the n-th place; a double keeps no more than 14 decimal
  // places of a number from 1 up, and carries a relative error of its own.
  const double media = 0.5 * std::pow(10.0, -(std::fabs(x) >= 1 && n >= 15 ? 14 : n));
  // Only a nearest multiple of the place beyond the double range overflows.
  if (std::isinf(r) && !std::isinf(x))
    EXIGE(std::fabs(x) + media > std::numeric_limits<double>::max(), "desborda: " + caso);
  else if (!std::isinf(x))
    EXIGE(std::fabs(r - x) <= media * (1 + 1e-9) + std::fabs(x) * 1e-15, "lejano: " + caso);
  else
    EXIGE(r == x, caso);
}

void CompruebaCFr(FormatNum& f, double num, double den) {
  const std::string t = f.CFr(num, den);
  const double x = num / den;
  const std::string caso = "CFr(" + Num(num) + ", " + Num(den) + ") = «" + Visible(t) + "»";
  EXIGE(t.empty() == !std::isfinite(x), caso);
  if (t.empty()) return;
  const double holgura = std::fabs(x) * 1e-13 + 1e-300; // numbers carry 15 digits
  if (t.front() != '(') {
    // The largest doubles are written rounded past the top of the range.
    const double leido = LeeNumero(t);
    EXIGE(std::isinf(leido) ? std::fabs(x) > 1.7976931348623e308 && (leido > 0) == (x > 0)
                            : std::fabs(leido - x) <= holgura + 1,
          "entero lejano: " + caso);
    return;
  }
  const std::size_t barra = t.find('/');
  EXIGE(barra != std::string::npos && t.back() == ')', "fracción mal escrita: " + caso);
  const double p = LeeNumero(t.substr(1, barra - 1));
  const double q = LeeNumero(t.substr(barra + 1, t.size() - barra - 2));
  // A convergent p/q of x is within 1/q^2 of it.
  EXIGE(q >= 2 && p == std::trunc(p) && q == std::trunc(q) &&
            std::fabs(p / q - x) <= 1 / (q * q) + holgura,
        "fracción lejana: " + caso);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  LectorFuzz in(datos, tam);
  const std::uint8_t opciones = in.Byte();
  FormatNum f;
  const int cifras = opciones & 1 ? in.Entero32() : in.Byte() % 20, previas = f.CifRed();
  f.CifRed(cifras);
  EXIGE(f.CifRed() == (cifras >= 0 && cifras <= 300 ? cifras : previas), "CifRed " + Num(cifras));
  f.OutFracc(opciones & 2);
  if (opciones & 4) {
    const double x = in.Doble(), y = in.Doble();
    // Digit counts of 16 bits, negative ones included.
    CompruebaRedN(f, x, static_cast<std::int16_t>(in.Entre(0, 65535)));
    CompruebaRedN(f, x, f.CifRed());
    CompruebaCFr(f, x, y);
    CompruebaCFr(f, x, 1);
  }
  const std::string texto = in.Resto(), salida = f.FCoef(texto);
  // A number becomes at most "(p/q)" of two 15-digit numbers with exponents;
  // any other character at most three UTF-8 bytes.
  EXIGE(salida.size() <= texto.size() * 47 + 8, "FCoef crece en exceso: «" + Visible(texto) + "»");
  // Formatting rewrites numbers and drops comments: elsewhere the letters
  // besides the exponent marks stay as they were (a literal beyond the double
  // range is copied as written, never as an infinity).
  const auto letras = [](const std::string& t) {
    std::string r;
    for (const char c : t)
      if (std::isalpha(static_cast<unsigned char>(c)) && std::toupper(c) != 'E' &&
          std::toupper(c) != 'D')
        r += c;
    return r;
  };
  EXIGE(texto.find('\'') != std::string::npos || letras(salida) == letras(texto),
        "FCoef de «" + Visible(texto) + "» da «" + Visible(salida) + "»");
  // The largest doubles are written rounded past the top of the range, a
  // number the checker refuses as too large.
  SintaxExp s;
  EXIGE(!s.SintaxExpr(texto) || s.SintaxExpr(salida) ||
            s.ErrNumber() == NumeroError(ErrAritmetica::Desbordamiento),
        "FCoef de «" + Visible(texto) + "» da «" + Visible(salida) + "»: " + s.ErrDesc());
  return 0;
}
