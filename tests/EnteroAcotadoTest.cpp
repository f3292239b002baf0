// The whole numbers of the settings boxes: digits only, blanks around them,
// inside the box's range.

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "lang/EnteroAcotado.h"

namespace {

TEST(EnteroAcotado, NumerosDentroDelRango) {
  const std::pair<const char*, int> bien[]{{"0", 0},     {"300", 300}, {" 8 ", 8},
                                           {"\t16", 16}, {"007", 7},   {"12\t ", 12}};
  for (auto [texto, valor] : bien)
    EXPECT_EQ(EnteroAcotado(texto, 0, 300), valor) << texto;
}

TEST(EnteroAcotado, LoDemasNoEsUnNumeroDelRango) {
  for (const char* mal : {"", "  ", "301", "-1", "+4", "4.5", "4 4", "4,5", "abc", "1e2", "٣",
                          "99999999999999999999", "\n4"})
    EXPECT_EQ(EnteroAcotado(mal, 0, 300), std::nullopt) << mal;
}

TEST(EnteroAcotado, LosLimitesSonLosDelLlamador) {
  EXPECT_EQ(EnteroAcotado("0", 1, 32), std::nullopt);
  EXPECT_EQ(EnteroAcotado("1", 1, 32), 1);
  EXPECT_EQ(EnteroAcotado("32", 1, 32), 32);
  EXPECT_EQ(EnteroAcotado("33", 1, 32), std::nullopt);
  EXPECT_EQ(EnteroAcotado("2147483647", 0, 2147483647), 2147483647);
  EXPECT_EQ(EnteroAcotado("2147483648", 0, 2147483647), std::nullopt);
}

} // namespace
