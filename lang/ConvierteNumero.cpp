#include "lang/ConvierteNumero.h"

#include <charconv>
#include <string>

#include "lang/Errores.h"

namespace {

bool EsDigito(char c) { return c >= '0' && c <= '9'; }

// Decimal order of magnitude of a literal whose conversion fell out of
// range: positive means too large, otherwise too small.
long Magnitud(const std::string& t) {
  std::size_t i = 0;
  long digitosEnteros = 0, cerosFraccion = 0;
  bool visto = false; // a non-zero digit has been seen
  for (; i < t.size() && EsDigito(t[i]); ++i) {
    visto = visto || t[i] != '0';
    if (visto) ++digitosEnteros;
  }
  if (i < t.size() && t[i] == '.') {
    for (++i; i < t.size() && EsDigito(t[i]); ++i) {
      if (!visto && t[i] == '0') ++cerosFraccion;
      visto = visto || t[i] != '0';
    }
  }
  long exponente = 0;
  if (i < t.size() && t[i] == 'E') {
    ++i;
    const bool negativo = i < t.size() && t[i] == '-';
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
    for (; i < t.size() && EsDigito(t[i]); ++i)
      if (exponente < 100000) exponente = exponente * 10 + (t[i] - '0');
    if (negativo) exponente = -exponente;
  }
  return (digitosEnteros > 0 ? digitosEnteros : -cerosFraccion) + exponente;
}

} // namespace

double ConvierteLiteral(std::string_view texto, char separador) {
  std::string t(texto);
  for (char& c : t) {
    if (c == separador) c = '.';
    else if (c == 'D' || c == 'd' || c == 'e') c = 'E';
  }
  double valor = 0;
  const auto r = std::from_chars(t.data(), t.data() + t.size(), valor);
  if (r.ec == std::errc::result_out_of_range) {
    if (Magnitud(t) > 0) throw ErrorMotor{kErrDesbordamiento, kDescDesbordamiento};
    return 0;
  }
  return valor;
}
