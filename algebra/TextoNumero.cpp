#include "algebra/TextoNumero.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

CifrasDecimales Cifras15(double valor) {
  // d.dddddddddddddde±x: the 15 significant digits, correctly rounded.
  char buf[40];
  const auto r = std::to_chars(buf, buf + sizeof buf, valor, std::chars_format::scientific, 14);
  const std::string_view s(buf, static_cast<std::size_t>(r.ptr - buf));
  CifrasDecimales c{s[0] == '-', "", 0};
  const std::size_t posE = s.find('e');
  for (std::size_t i = c.negativo ? 1 : 0; i < posE; ++i)
    if (s[i] != '.') c.digitos += s[i];
  while (c.digitos.size() > 1 && c.digitos.back() == '0')
    c.digitos.pop_back();
  c.exponente = std::atoi(std::string(s.substr(posE + 1)).c_str());
  return c;
}

std::string TextoNumero(double valor) {
  if (valor == 0) return "0";
  // Callers check for overflow first; should one slip through, it is written
  // as the runtime does rather than read past the digits.
  if (!std::isfinite(valor)) return valor > 0 ? "inf" : valor < 0 ? "-inf" : "nan";
  // Whole numbers below 10^15 have at most 15 digits and are written plain,
  // exactly: the rounding below would give the same digits.
  if (std::fabs(valor) < 1e15 && valor == std::trunc(valor)) {
    char buf[24];
    const auto r = std::to_chars(buf, buf + sizeof buf, static_cast<long long>(valor));
    return std::string(buf, r.ptr);
  }
  const auto [negativo, digitos, exponente] = Cifras15(valor);

  std::string out = negativo ? "-" : "";
  if (exponente >= kExpPlanoMin && exponente <= kExpPlanoMax) {
    if (exponente < 0) {
      out += '.';
      out.append(static_cast<std::size_t>(-exponente - 1), '0');
      out += digitos;
    } else {
      const auto enteros = static_cast<std::size_t>(exponente) + 1;
      if (digitos.size() <= enteros) {
        out += digitos;
        out.append(enteros - digitos.size(), '0');
      } else {
        out += digitos.substr(0, enteros);
        out += '.';
        out += digitos.substr(enteros);
      }
    }
  } else {
    out += digitos[0];
    if (digitos.size() > 1) out += "." + digitos.substr(1);
    out += exponente < 0 ? "E-" : "E+";
    const int absoluto = std::abs(exponente);
    if (absoluto < 10) out += '0';
    out += std::to_string(absoluto);
  }
  return out;
}
