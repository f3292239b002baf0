#pragma once
// Character classes of the expression language, on Windows-1252 bytes.

#include <string_view>

inline bool EsDigito(unsigned char b) { return b >= '0' && b <= '9'; }

// Letters that may start an identifier: the ASCII ones and the twelve
// accented letters of Spanish (deliberately not ü nor à).
inline bool EsInicioId(unsigned char b) {
  if ((b >= 'A' && b <= 'Z') || (b >= 'a' && b <= 'z')) return true;
  switch (b) {
  case 193:
  case 201:
  case 205:
  case 211:
  case 218:
  case 209: // Á É Í Ó Ú Ñ
  case 225:
  case 233:
  case 237:
  case 243:
  case 250:
  case 241: // á é í ó ú ñ
    return true;
  default:
    return false;
  }
}

inline bool EsCarId(unsigned char b) { return EsInicioId(b) || EsDigito(b); }

// A character of a word: what follows the first letter of a name (a letter,
// a digit or "_"). Whole-word search and the double click go by it, so that
// a word is what the language reads as one name.
inline bool EsCarPalabra(unsigned char b) { return EsCarId(b) || b == '_'; }

// Whether a text is one whole word: not empty, every character a word
// character.
inline bool EsPalabra(std::string_view bytes) {
  for (const char c : bytes)
    if (!EsCarPalabra(static_cast<unsigned char>(c))) return false;
  return !bytes.empty();
}

// A name as variables are named: a letter, then letters, digits or "_".
inline bool EsIdentificador(std::string_view bytes) {
  return EsPalabra(bytes) && EsInicioId(static_cast<unsigned char>(bytes[0]));
}
