#include "lang/Cp1252.h"

#include <array>
#include <cstdint>

namespace {

// Code points of bytes 0x80 to 0x9F, where Windows-1252 differs from
// Latin-1. The five undefined bytes keep their own value.
constexpr auto kZona80 = std::to_array<char32_t>(
    {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
     0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
     0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178});
static_assert(kZona80.size() == 0xA0 - 0x80);

unsigned char ByteDe(char32_t cp) {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<unsigned char>(cp);
  for (std::size_t i = 0; i < kZona80.size(); ++i)
    if (kZona80[i] == cp) return static_cast<unsigned char>(0x80 + i);
  return kByteAjeno;
}

void AñadeUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

} // namespace

std::size_t DecodificaUtf8(std::string_view s, std::size_t i, char32_t& cp) {
  const auto b0 = static_cast<unsigned char>(s[i]);
  std::size_t n;
  char32_t minimo;
  if (b0 < 0x80) {
    cp = b0;
    return 1;
  } else if ((b0 & 0xE0) == 0xC0) {
    n = 2, cp = b0 & 0x1F, minimo = 0x80;
  } else if ((b0 & 0xF0) == 0xE0) {
    n = 3, cp = b0 & 0x0F, minimo = 0x800;
  } else if ((b0 & 0xF8) == 0xF0) {
    n = 4, cp = b0 & 0x07, minimo = 0x10000;
  } else {
    return 0;
  }
  if (i + n > s.size()) return 0;
  for (std::size_t k = 1; k < n; ++k) {
    const auto b = static_cast<unsigned char>(s[i + k]);
    if ((b & 0xC0) != 0x80) return 0;
    cp = (cp << 6) | (b & 0x3F);
  }
  if (cp < minimo || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
  return n;
}

std::string Utf8ACp1252(std::string_view utf8) {
  std::string out;
  out.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    char32_t cp = 0;
    const std::size_t n = DecodificaUtf8(utf8, i, cp);
    out += static_cast<char>(n == 0 ? kByteAjeno : ByteDe(cp));
    i += n == 0 ? 1 : n;
  }
  return out;
}

std::string Cp1252AUtf8(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size() + bytes.size() / 4);
  for (const char c : bytes) {
    const auto b = static_cast<unsigned char>(c);
    AñadeUtf8(out, b >= 0x80 && b < 0xA0 ? kZona80[b - 0x80] : char32_t{b});
  }
  return out;
}

bool EsUtf8Valido(std::string_view texto) {
  for (std::size_t i = 0; i < texto.size();) {
    char32_t cp = 0;
    const std::size_t n = DecodificaUtf8(texto, i, cp);
    if (n == 0) return false;
    i += n;
  }
  return true;
}

std::string PrimerCaracterAjeno(std::string_view utf8) {
  for (std::size_t i = 0; i < utf8.size();) {
    char32_t cp = 0;
    const std::size_t n = DecodificaUtf8(utf8, i, cp);
    if (n == 0) return std::string(utf8.substr(i, 1));
    // U+0081 is the code page's own undefined byte, not a stand-in.
    if (ByteDe(cp) == kByteAjeno && cp != kByteAjeno) return std::string(utf8.substr(i, n));
    i += n;
  }
  return "";
}

int LongitudUtf8(std::string_view utf8) { return static_cast<int>(Utf8ACp1252(utf8).size()); }

namespace {

unsigned char Minuscula(unsigned char b) {
  if ((b >= 'A' && b <= 'Z') || (b >= 0xC0 && b <= 0xDE && b != 0xD7)) return b + 0x20;
  if (b == 0x8A || b == 0x8C || b == 0x8E) return b + 0x10; // Š Œ Ž
  if (b == 0x9F) return 0xFF;                               // Ÿ
  return b;
}

unsigned char Mayuscula(unsigned char b) {
  if ((b >= 'a' && b <= 'z') || (b >= 0xE0 && b <= 0xFE && b != 0xF7)) return b - 0x20;
  if (b == 0x9A || b == 0x9C || b == 0x9E) return b - 0x10; // š œ ž
  if (b == 0xFF) return 0x9F;                               // ÿ
  return b;
}

template <unsigned char (*Cambia)(unsigned char)> std::string Convierte(std::string_view bytes) {
  std::string out(bytes);
  for (char& c : out)
    c = static_cast<char>(Cambia(static_cast<unsigned char>(c)));
  return out;
}

} // namespace

std::string EnMinusculas(std::string_view bytes) { return Convierte<Minuscula>(bytes); }
unsigned char MinusculaCp1252(unsigned char b) { return Minuscula(b); }
std::string EnMayusculas(std::string_view bytes) { return Convierte<Mayuscula>(bytes); }

std::string FinesDeLineaDeDocumento(std::string_view texto) {
  std::string out;
  out.reserve(texto.size());
  bool primera = true;
  RecorreFilas(texto, [&](std::string_view fila) {
    if (!primera) out += "\r\n";
    out += fila;
    primera = false;
  });
  return out;
}
