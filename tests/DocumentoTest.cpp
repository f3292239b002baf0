// The document model alone: reading the selection over rows (whose implicit
// line breaks count two characters), SelectText's all-or-nothing check, and
// columns that count Windows-1252 cells, not UTF-8 bytes.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "editor/Documento.h"
#include "lang/Cp1252.h"

namespace {

// A document of UTF-8 rows, stored as the cells a file would give.
Documento Doc(const std::vector<std::string>& filasUtf8) {
  std::vector<std::string> bytes;
  for (const std::string& f : filasUtf8)
    bytes.push_back(Utf8ACp1252(f));
  Documento d;
  d.Carga(bytes, 0);
  return d;
}

TEST(Documento, SelectionTextOverRows) {
  // clang-format off
  const struct {
    std::vector<std::string> filas;
    Posicion ancla, extremo;
    std::string texto, primeraFila;
    int largo;
  } casos[] = {
      {{"ab", "cd"}, {0, 2}, {1, 0}, "\r\n", "", 2},        // one line break, nothing else
      {{"ab", "cd"}, {1, 0}, {0, 2}, "\r\n", "", 2},        // the same, selected backwards
      {{"ab", "cd"}, {1, 1}, {0, 1}, "b\r\nc", "b", 4},
      {{"ab", "", "cd"}, {0, 0}, {2, 2}, "ab\r\n\r\ncd", "ab", 8},
      {{"abcd"}, {0, 3}, {0, 1}, "bc", "bc", 2},
      {{"año", "ñu"}, {0, 1}, {1, 1}, "ño\r\nñ", "ño", 5}, // ñ is one cell
      {{"x", "y = 2·x", "z"}, {2, 0}, {1, 4}, "2·x\r\n", "2·x", 5},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(testing::PrintToString(c.filas) + " " + c.texto);
    Documento d = Doc(c.filas);
    d.FijaSeleccion(c.ancla, c.extremo);
    ASSERT_TRUE(d.HaySel());
    EXPECT_EQ(d.GetTextSel(), c.texto);
    EXPECT_EQ(d.GetTextSelFil1(), c.primeraFila);
    EXPECT_EQ(d.LongSel(), c.largo);
    // The selection's length is counted in cells, as its bytes are.
    EXPECT_EQ(static_cast<int>(d.Bytes(d.InicioSel(), d.FinSel()).size()), c.largo);
    EXPECT_EQ(d.Sel1(), c.ancla); // reading does not reorder the ends
  }
}

TEST(Documento, NoSelectionReadsEmptyEvenWithOldEnds) {
  Documento d = Doc({"abc", "def"});
  d.FijaSeleccion({0, 1}, {1, 2});
  d.QuitaSeleccion();
  EXPECT_EQ(d.Sel2(), (Posicion{1, 2}));
  EXPECT_EQ(d.GetTextSel(), "");
  EXPECT_EQ(d.GetTextSelFil1(), "");
  EXPECT_EQ(d.LongSel(), 0);
}

TEST(Documento, SelectTextSelectsWithinOneRowOrDoesNothing) {
  // Columns count cells: "año" is three cells in four UTF-8 bytes. The
  // selection before each call is " =" on row 1, the cursor after it.
  const Posicion sel1{1, 1}, sel2{1, 3};
  // clang-format off
  const struct {
    int fila, col, largo; Posicion cursor, ancla, extremo; const char* texto;
  } casos[] = {
      {0, 0, 3, {0, 3}, {0, 0}, {0, 3}, "año"},
      {1, 4, 3, {1, 7}, {1, 4}, {1, 7}, "2·x"},
      // No length: only the cursor moves, to any place of a row.
      {0, 1, 0, {0, 1}, sel1, sel2, " ="}, {1, 7, 0, {1, 7}, sel1, sel2, " ="},
      // Not inside a row: nothing at all changes.
      {-1, 0, 0, sel2, sel1, sel2, " ="}, {2, 0, 0, sel2, sel1, sel2, " ="},
      {0, 4, 0, sel2, sel1, sel2, " ="},  {0, -1, 1, sel2, sel1, sel2, " ="},
      {0, 2, 2, sel2, sel1, sel2, " ="},  {1, 0, 8, sel2, sel1, sel2, " ="},
      {0, 1, -1, sel2, sel1, sel2, " ="},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(testing::Message() << c.fila << "," << c.col << "," << c.largo);
    Documento d = Doc({"año", "y = 2·x"});
    d.FijaSeleccion(sel1, sel2);
    d.MueveCursor(sel2.fila, sel2.col);
    d.SelectText(c.fila, c.col, c.largo);
    EXPECT_EQ(d.Cursor(), c.cursor);
    EXPECT_TRUE(d.HaySel());
    EXPECT_EQ(d.Sel1(), c.ancla);
    EXPECT_EQ(d.Sel2(), c.extremo);
    EXPECT_EQ(d.GetTextSel(), c.texto);
  }
  Documento d = Doc({"abc"});
  d.SelectText(0, 2, 0); // no length makes no selection either
  EXPECT_FALSE(d.HaySel());
  EXPECT_EQ(d.Cursor(), (Posicion{0, 2}));
}

TEST(Documento, WholeTextJoinsRowsWithoutATrailingBreak) {
  EXPECT_EQ(Doc({}).TextoDocumento(), "");
  EXPECT_EQ(Doc({}).NumFilas(), 1);
  EXPECT_EQ(Doc({"a", "", "ñ"}).TextoDocumento(), "a\r\n\r\nñ");
}

TEST(Documento, InsertAndRemoveAreInverse) {
  Documento d = Doc({"abc", "def"});
  const Posicion fin = d.Inserta({0, 1}, "X\r\n\r\nY", 5);
  EXPECT_EQ(fin, (Posicion{2, 1}));
  EXPECT_EQ(fin, Documento::Fin({0, 1}, "X\r\n\r\nY"));
  EXPECT_EQ(d.TextoDocumento(), "aX\r\n\r\nYbc\r\ndef");
  EXPECT_EQ(d.Fila(2)[0], 5 * 256 + 'Y');
  EXPECT_EQ(d.Fila(2)[1], 'b'); // the moved cells keep their colour
  EXPECT_EQ(d.Quita({0, 1}, fin), "X\r\n\r\nY");
  EXPECT_EQ(d.TextoDocumento(), "abc\r\ndef");
}

} // namespace
