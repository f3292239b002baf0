#pragma once
// Text crosses every public boundary as UTF-8, but the lexer, the document's
// cells and document files hold single Windows-1252 bytes, so that one byte
// is one character and one column.

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

// Line breaks ("\r\n", or a lone "\r" or "\n", as terminals, Unix files and
// the clipboard write them) as the document's "\r\n".
std::string FinesDeLineaDeDocumento(std::string_view texto);

// Whether a text is well-formed UTF-8.
bool EsUtf8Valido(std::string_view texto);

// The number of characters in a UTF-8 text (a broken sequence counts one
// character per byte, as Utf8ACp1252 reads it).
int LongitudUtf8(std::string_view utf8);

// Letter case of a Windows-1252 byte text (ASCII and the accented Latin
// letters), for the comparisons that ignore case.
std::string EnMinusculas(std::string_view bytes);
std::string EnMayusculas(std::string_view bytes);
