#pragma once
// Text crosses every public boundary as UTF-8, but the lexer, the document's
// cells and document files hold single Windows-1252 bytes, so that one byte
// is one character and one column.

#include <cstddef>
#include <string>
#include <string_view>

// The byte that stands for a character outside the code page (or a broken
// UTF-8 sequence): it is neither an identifier nor an operator character, so
// the lexer reads it as an unknown character.
inline constexpr unsigned char kByteAjeno = 0x81;

// UTF-8 to Windows-1252, one byte per character.
std::string Utf8ACp1252(std::string_view utf8);

// Windows-1252 to UTF-8. The five bytes the code page leaves undefined
// (0x81, 0x8D, 0x8F, 0x90, 0x9D) become the control characters of the same
// value, so every byte survives the round trip.
std::string Cp1252AUtf8(std::string_view bytes);

// Calls `fila` with each row of a text. A row ends at "\r\n", or at a lone
// "\r" or "\n" as terminals, Unix files and the clipboard write them; what
// follows the last end is a row too, even an empty one.
template <class F> void RecorreFilas(std::string_view texto, F&& fila) {
  std::size_t inicio = 0;
  for (std::size_t i = 0; i < texto.size(); ++i) {
    const char c = texto[i];
    if (c != '\r' && c != '\n') continue;
    fila(texto.substr(inicio, i - inicio));
    if (c == '\r' && i + 1 < texto.size() && texto[i + 1] == '\n') ++i;
    inicio = i + 1;
  }
  fila(texto.substr(inicio));
}

// Line breaks of every kind (RecorreFilas) as the document's "\r\n".
std::string FinesDeLineaDeDocumento(std::string_view texto);

// Decodes the UTF-8 sequence that starts at s[i] into `cp` and returns its
// length, or 0 when the bytes there are no well-formed character (broken,
// overlong, a surrogate or beyond U+10FFFF). `i` must lie inside `s`.
std::size_t DecodificaUtf8(std::string_view s, std::size_t i, char32_t& cp);

// Whether a text is well-formed UTF-8.
bool EsUtf8Valido(std::string_view texto);

// The first character of a UTF-8 text that a document cell cannot hold (one
// outside the code page, or the first byte of a broken sequence), or "" when
// every character fits.
std::string PrimerCaracterAjeno(std::string_view utf8);

// The number of characters in a UTF-8 text (a broken sequence counts one
// character per byte, as Utf8ACp1252 reads it).
int LongitudUtf8(std::string_view utf8);

// Letter case of a Windows-1252 byte text (ASCII and the accented Latin
// letters), for the comparisons that ignore case.
std::string EnMinusculas(std::string_view bytes);
unsigned char MinusculaCp1252(unsigned char b);
std::string EnMayusculas(std::string_view bytes);
