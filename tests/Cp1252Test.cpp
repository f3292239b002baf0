// The lexer and the document hold Windows-1252 bytes; everything else holds
// UTF-8. The cases of tests/casos/cp1252.txt pin the characters the language
// relies on; every byte must survive the way back and forth.

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "Casos.h"
#include "lang/Cp1252.h"

namespace {

using prueba::Texto;

// "78 81 79" as the bytes it names.
std::string Bytes(const std::string& hex) {
  std::istringstream in(hex);
  std::string bytes;
  for (std::string b; in >> b;)
    bytes += static_cast<char>(std::stoi(b, nullptr, 16));
  return bytes;
}

class PaginaDeCodigos : public prueba::TablaDeCasos {};

TEST_P(PaginaDeCodigos, Caso) {
  const prueba::Caso& c = GetParam();
  const std::string utf8 = Texto(c[1]);
  if (c[0] == "par") {
    EXPECT_EQ(Utf8ACp1252(utf8), Bytes(c[2]));
    EXPECT_EQ(Cp1252AUtf8(Bytes(c[2])), utf8);
  } else if (c[0] == "ajeno") {
    EXPECT_EQ(Utf8ACp1252(utf8), Bytes(c[2]));
    EXPECT_EQ(LongitudUtf8(utf8), static_cast<int>(Bytes(c[2]).size()));
  } else if (c[0] == "decodifica") {
    char32_t cp = 0;
    const std::size_t largo = DecodificaUtf8(utf8 + "z", std::stoul(c[2]), cp);
    EXPECT_EQ(largo, std::stoul(c[3]));
    if (largo > 0) {
      EXPECT_EQ(cp, std::stoul(c[4], nullptr, 16));
    }
  } else if (c[0] == "primer-ajeno") {
    EXPECT_EQ(PrimerCaracterAjeno(utf8), Texto(c[2]));
  } else if (c[0] == "mayusculas") {
    EXPECT_EQ(Cp1252AUtf8(EnMayusculas(Utf8ACp1252(utf8))), c[2]);
    EXPECT_EQ(Cp1252AUtf8(EnMinusculas(Utf8ACp1252(c[2]))), utf8);
  } else {
    ASSERT_EQ(c[0], "longitud");
    EXPECT_EQ(LongitudUtf8(utf8), std::stoi(c[2]));
  }
}

INSTANTIATE_TEST_SUITE_P(Casos, PaginaDeCodigos, prueba::Casos("cp1252.txt"), prueba::NombreDeCaso);

// ASCII passes unchanged, every byte comes back alone and all together, and
// a character counts one whatever its bytes.
TEST(Cp1252, EveryByteSurvivesTheRoundTrip) {
  std::string todos;
  for (int b = 0; b < 256; ++b) {
    const std::string byte(1, static_cast<char>(b)), utf8 = Cp1252AUtf8(byte);
    EXPECT_TRUE(b >= 0x80 || utf8 == byte) << b;
    EXPECT_EQ(Utf8ACp1252(utf8), byte) << b;
    todos += byte;
  }
  const std::string utf8 = Cp1252AUtf8(todos);
  EXPECT_EQ(Utf8ACp1252(utf8), todos);
  EXPECT_EQ(LongitudUtf8(utf8), 256);
}

} // namespace
