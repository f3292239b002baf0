// The lexer and the document hold Windows-1252 bytes; everything else holds
// UTF-8. These cases pin the characters the language relies on and the
// promise that no byte is lost on the way back and forth.

#include <gtest/gtest.h>

#include <string>

#include "lang/Cp1252.h"

namespace {

std::string Byte(int b) { return std::string(1, static_cast<char>(b)); }
const std::string kAjeno = Byte(kByteAjeno);

TEST(Cp1252, CharactersOfTheCodePageBothWays) {
  // clang-format off
  const struct {
    const char* utf8;
    int byte;
  } casos[] = {
      {"á", 0xE1}, {"é", 0xE9}, {"í", 0xED}, {"ó", 0xF3}, {"ú", 0xFA}, {"ñ", 0xF1},
      {"Á", 0xC1}, {"É", 0xC9}, {"Í", 0xCD}, {"Ó", 0xD3}, {"Ú", 0xDA}, {"Ñ", 0xD1},
      {"ü", 0xFC}, {"Ü", 0xDC}, {"·", 0xB7}, {"¿", 0xBF}, {"ÿ", 0xFF}, {"\u00A0", 0xA0},
      // 0x80-0x9F is where Windows-1252 parts from Latin-1.
      {"€", 0x80}, {"‚", 0x82}, {"ƒ", 0x83}, {"…", 0x85}, {"Š", 0x8A}, {"Œ", 0x8C},
      {"Ž", 0x8E}, {"‘", 0x91}, {"“", 0x93}, {"”", 0x94}, {"—", 0x97}, {"™", 0x99},
      {"š", 0x9A}, {"ž", 0x9E}, {"Ÿ", 0x9F},
      // The five bytes the code page leaves undefined stand for themselves.
      {"\u0081", 0x81}, {"\u008D", 0x8D}, {"\u008F", 0x8F}, {"\u0090", 0x90}, {"\u009D", 0x9D},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.utf8);
    EXPECT_EQ(Utf8ACp1252(c.utf8), Byte(c.byte));
    EXPECT_EQ(Cp1252AUtf8(Byte(c.byte)), c.utf8);
  }
  EXPECT_EQ(Utf8ACp1252("año·€"), "a\xF1o\xB7\x80");
}

TEST(Cp1252, ForeignCharactersAndBrokenUtf8BecomeTheForeignByte) {
  // clang-format off
  const struct {
    std::string utf8, bytes;
  } casos[] = {
      {"→", kAjeno}, {"中", kAjeno}, {"😀", kAjeno},
      {"\u0085", kAjeno},                          // a C1 control that Windows-1252 replaces by "…"
      {"x→y", "x" + kAjeno + "y"},
      {"\xC3", kAjeno},                            // lead byte cut off at the end
      {"\xC3(", kAjeno + "("},                     // lead byte without continuation
      {"\x80", kAjeno},                            // stray continuation byte
      {"\xFF", kAjeno},                            // never valid in UTF-8
      {"\xE2\x82", kAjeno + kAjeno},               // truncated three-byte sequence
      {"\xC0\xAF", kAjeno + kAjeno},               // overlong "/"
      {"\xED\xA0\x80", kAjeno + kAjeno + kAjeno},  // surrogate
      {"\xF4\x90\x80\x80", kAjeno + kAjeno + kAjeno + kAjeno}, // past U+10FFFF
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(testing::PrintToString(c.utf8));
    EXPECT_EQ(Utf8ACp1252(c.utf8), c.bytes);
    EXPECT_EQ(LongitudUtf8(c.utf8), static_cast<int>(c.bytes.size()));
  }
}

TEST(Cp1252, OneCharacterDecodedAtATime) {
  const struct {
    std::string utf8;
    std::size_t largo;
    char32_t cp;
  } casos[] = {
      {"x", 1, U'x'},
      {"ñ", 2, U'ñ'},
      {"€", 3, U'€'},
      {"😀", 4, U'😀'},
      {"\xC0\xAF", 0, 0},
      {"\xED\xA0\x80", 0, 0},
      {"\xF4\x90\x80\x80", 0, 0},
      {"\xE2\x82", 0, 0},
      {"\x80", 0, 0},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(testing::PrintToString(c.utf8));
    char32_t cp = 0;
    const std::size_t largo = DecodificaUtf8(c.utf8 + "z", 0, cp);
    EXPECT_EQ(largo, c.largo);
    if (largo > 0) {
      EXPECT_EQ(cp, c.cp);
    }
  }
  char32_t cp = 0;
  EXPECT_EQ(DecodificaUtf8("añ", 1, cp), 2u);
  EXPECT_EQ(cp, U'ñ');
}

// The character that keeps a text out of a document, as a message names it.
TEST(Cp1252, TheFirstCharacterThatDoesNotFit) {
  const std::pair<std::string, std::string> casos[] = {
      {"", ""},
      {"año·€\u0081Ÿ", ""}, // U+0081 is the code page's own byte
      {"ab→c中", "→"},
      {"y = x😀", "😀"},
      {"a\u0085", "\u0085"},
      {"x\xC3(", "\xC3"}, // a broken sequence is named by its first byte
      {"\xE2\x82", "\xE2"},
  };
  for (const auto& [utf8, ajeno] : casos)
    EXPECT_EQ(PrimerCaracterAjeno(utf8), ajeno) << testing::PrintToString(utf8);
}

// ASCII passes unchanged, and every byte comes back; lengths count
// characters, not bytes.
TEST(Cp1252, EveryByteSurvivesTheRoundTrip) {
  std::string todos;
  for (int b = 0; b < 256; ++b) {
    SCOPED_TRACE(b);
    const std::string utf8 = Cp1252AUtf8(Byte(b));
    EXPECT_TRUE(b >= 0x80 || utf8 == Byte(b)) << utf8;
    EXPECT_EQ(Utf8ACp1252(utf8), Byte(b));
    todos += Byte(b);
  }
  const std::string utf8 = Cp1252AUtf8(todos);
  EXPECT_EQ(Utf8ACp1252(utf8), todos);
  EXPECT_EQ(LongitudUtf8(utf8), 256);
  EXPECT_EQ(LongitudUtf8(""), 0);
  EXPECT_EQ(LongitudUtf8("añob€→中😀\r\n"), 10);
}

} // namespace
