// The document model alone: reading the selection over rows (whose implicit
// line breaks count two characters), SelectText's all-or-nothing check, and
// columns that count Windows-1252 cells, not UTF-8 bytes. The table cases are
// the lines of tests/casos/documento.txt.

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "Casos.h"
#include "DibujoPrueba.h"
#include "editor/Documento.h"

namespace {

// A picture's document, as the editor loads it.
Documento Doc(const std::string& dibujo) {
  Editor ed;
  prueba::Prepara(ed, dibujo);
  return ed.Doc();
}

class DocumentoCasos : public prueba::TablaDeCasos {};

TEST_P(DocumentoCasos, Casos) {
  const prueba::Caso& c = GetParam();
  Documento d = Doc(c[1]);
  const Posicion ancla = d.Sel1();
  if (c[0] == "lee") {
    ASSERT_TRUE(d.HaySel());
    EXPECT_EQ(d.GetTextSel(), c[2]);
    EXPECT_EQ(d.GetTextSelFil1(), c[3] == "\"\"" ? "" : c[3]);
    EXPECT_EQ(d.LongSel(), std::stoi(c[4]));
    // The selection's length is counted in cells, as its bytes are.
    EXPECT_EQ(static_cast<int>(d.Bytes(d.InicioSel(), d.FinSel()).size()), d.LongSel());
    EXPECT_EQ(d.Sel1(), ancla); // reading does not reorder the ends
  } else if (c[0] == "fila") {
    EXPECT_EQ(d.GetTextFila(std::stoi(c[2])), c[3] == "\"\"" ? "" : c[3]);
  } else if (c[0] == "selecciona") {
    std::istringstream s(c[2]);
    int fila = 0, col = 0, largo = 0;
    s >> fila >> col >> largo;
    d.SelectText(fila, col, largo);
    EXPECT_EQ(prueba::Dibujo(d, true), c[3]);
  } else {
    FAIL() << "clase de caso desconocida: " << c[0];
  }
}

INSTANTIATE_TEST_SUITE_P(Casos, DocumentoCasos, prueba::Casos("documento.txt"),
                         prueba::NombreDeCaso);

TEST(Documento, NoSelectionReadsEmptyEvenWithOldEnds) {
  Documento d = Doc("a[bc\nde]f");
  d.QuitaSeleccion();
  EXPECT_EQ(d.Sel2(), (Posicion{1, 2}));
  EXPECT_EQ(d.GetTextSel() + d.GetTextSelFil1(), "");
  EXPECT_EQ(d.LongSel(), 0);
}

TEST(Documento, WholeTextJoinsRowsWithoutATrailingBreak) {
  Documento d;
  d.Carga({}, 0);
  EXPECT_EQ(d.TextoDocumento(), "");
  EXPECT_EQ(d.NumFilas(), 1);
  EXPECT_EQ(Doc("a\n\nñ").TextoDocumento(), "a\r\n\r\nñ");
}

TEST(Documento, InsertAndRemoveAreInverse) {
  Documento d = Doc("abc\ndef");
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
