#include "lang/ConvierteNumero.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "lang/Errores.h"

namespace {

bool EsDigito(char c) { return c >= '0' && c <= '9'; }
bool EsLetraExponente(char c) { return c == 'E' || c == 'e' || c == 'D' || c == 'd'; }

} // namespace

double LeeNumero(std::string_view t) {
  std::size_t i = 0;
  while (i < t.size() && (t[i] == ' ' || t[i] == '\t'))
    ++i;
  bool negativo = false;
  if (i < t.size() && (t[i] == '+' || t[i] == '-')) negativo = t[i++] == '-';

  // A whole number of at most 15 digits is exact in a double: read directly.
  if (const std::size_t largo = t.size() - i; largo > 0 && largo <= 15) {
    long long entero = 0;
    std::size_t j = i;
    for (; j < t.size() && EsDigito(t[j]); ++j)
      entero = entero * 10 + (t[j] - '0');
    if (j == t.size()) return negativo ? -static_cast<double>(entero) : static_cast<double>(entero);
  }

  // The mantissa's digits, with the decimal order of magnitude of its first
  // significant digit, so that an out-of-range result can be told apart
  // between too large and too small.
  std::string mantisa;
  long orden = 0; // position of the decimal point relative to the first significant digit
  bool significativo = false, digitos = false;
  for (; i < t.size() && EsDigito(t[i]); ++i) {
    digitos = true;
    significativo = significativo || t[i] != '0';
    if (significativo) mantisa += t[i], ++orden;
  }
  if (i < t.size() && t[i] == '.') {
    for (++i; i < t.size() && EsDigito(t[i]); ++i) {
      digitos = true;
      significativo = significativo || t[i] != '0';
      if (significativo)
        mantisa += t[i];
      else
        --orden;
    }
  }
  if (!digitos || mantisa.empty()) return negativo ? -0.0 : 0.0;

  long exponente = 0;
  if (i < t.size() && EsLetraExponente(t[i])) {
    std::size_t j = i + 1;
    bool expNegativo = false;
    if (j < t.size() && (t[j] == '+' || t[j] == '-')) expNegativo = t[j++] == '-';
    if (j < t.size() && EsDigito(t[j])) {
      for (; j < t.size() && EsDigito(t[j]); ++j)
        if (exponente < 1000000) exponente = exponente * 10 + (t[j] - '0');
      if (expNegativo) exponente = -exponente;
    }
  }
  const long magnitud = orden + exponente; // value is about 10^(magnitud-1)
  if (magnitud > 400) return negativo ? -HUGE_VAL : HUGE_VAL;
  if (magnitud < -400) return negativo ? -0.0 : 0.0;

  const std::string normal = "." + mantisa + "e" + std::to_string(magnitud);
  double valor = 0;
  const auto r = std::from_chars(normal.data(), normal.data() + normal.size(), valor);
  if (r.ec == std::errc::result_out_of_range) valor = magnitud > 0 ? HUGE_VAL : 0.0;
  return negativo ? -valor : valor;
}

double ConvierteLiteral(std::string_view texto, char separador) {
  std::string t(texto);
  if (separador != '.')
    for (char& c : t)
      if (c == separador) c = '.';
  const double valor = LeeNumero(t);
  if (std::isinf(valor)) throw ErrorMotor(ErrAritmetica::Desbordamiento);
  return valor;
}
