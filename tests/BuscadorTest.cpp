// Find and replace on a document without a window: the word test, the row
// search, the messages, the question's answers and the undo record of a
// replacement.

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "editor/Buscador.h"
#include "lang/Caracteres.h"
#include "lang/Cp1252.h"

namespace {

TEST(BuscadorPalabra, WordCharacters) {
  const struct {
    const char* utf8;
    bool palabra;
  } casos[] = {
      {"", false},    {"x", true},   {"año", true}, {"_9Zz", true}, {"ÁÉÍÓÚÑáéíóúñ", true},
      {"ü", false},   {"Ü", false},  {"à", false},  {"ç", false},   {"·", false},
      {"a b", false}, {"x+", false},
  };
  for (const auto& c : casos)
    EXPECT_EQ(EsPalabra(Utf8ACp1252(c.utf8)), c.palabra) << c.utf8;
}

TEST(BuscadorCadena, FirstOccurrenceFromStart) {
  const struct {
    const char *linea, *texto;
    int inicio;
    bool palabra;
    int modo, esperado;
  } casos[] = {
      {"abcabc", "bc", 1, false, 0, 2},   {"abcabc", "bc", 3, false, 0, 5},
      {"abcabc", "bc", 6, false, 0, 0},   {"aaa", "aa", 2, false, 0, 2},
      {"abc", "", 1, false, 0, 0},        {"abc", "abcd", 1, false, 0, 0},
      {"abc", "a", 0, false, 0, 0},       {"max", "x", 1, false, 0, 3},
      {"max", "x", 1, true, 0, 0},        {"2·x + 1", "x", 1, true, 0, 3},
      {"max + x", "x", 1, true, 0, 7},    {"años año", "año", 1, true, 0, 6},
      {"año", "añ", 1, true, 0, 0},       {"üxü", "x", 1, true, 0, 2},
      {"x_1 x", "x", 1, true, 0, 5},      {"a b", "b", 2, true, 0, 3},
      {"Y = X", "x", 1, false, 1, 5},     {"Y = X", "x", 1, false, 0, 0},
      {"ÑANDÚ", "ñandú", 1, false, 1, 1}, {"ÑANDÚ", "ñandú", 1, false, 0, 0},
  };
  for (const auto& c : casos)
    EXPECT_EQ(
        BuscaEnCadena(Utf8ACp1252(c.linea), Utf8ACp1252(c.texto), c.inicio, c.palabra, c.modo),
        c.esperado)
        << c.linea << " / " << c.texto << " from " << c.inicio;
}

class BuscadorDoc : public ::testing::Test {
protected:
  void SetUp() override {
    bus.FijaAviso([this](const std::string& a) { avisos.push_back(a); });
    bus.FijaPregunta([this](const std::string&) {
      ++preguntas;
      if (respuestas.empty()) return Respuesta::Cancelar;
      const Respuesta r = respuestas.front();
      respuestas.erase(respuestas.begin());
      return r;
    });
  }
  // Rows written in UTF-8, loaded as a file's bytes would be.
  void Carga(const std::vector<std::string>& filas) {
    std::vector<std::string> bytes;
    for (const std::string& f : filas)
      bytes.push_back(Utf8ACp1252(f));
    ed.Carga(bytes);
  }
  std::string Texto() const { return ed.Doc().TextoDocumento(); }
  int Reemplaza(const std::string& texto, const std::string& reemp, ModoReemplazo modo,
                bool palabra = false, int comparacion = 0) {
    int fila = 0, col = 0;
    return bus.Reemp(texto, reemp, fila, col, palabra, comparacion, modo);
  }

  Editor ed;
  Buscador bus{ed};
  std::vector<std::string> avisos;
  std::vector<Respuesta> respuestas;
  int preguntas = 0;
};

using BuscadorSearch = BuscadorDoc;
using BuscadorReemp = BuscadorDoc;

TEST_F(BuscadorSearch, InvalidArguments) {
  Carga({"x", "x", "x"});
  const struct {
    int fila, col, modo;
  } casos[] = {{-1, 0, 0}, {3, 0, 0}, {40, 0, 0}, {0, -1, 0}, {0, 0, 2}};
  for (const auto& c : casos) {
    avisos.clear();
    int fila = c.fila, col = c.col;
    EXPECT_FALSE(bus.Search("x", fila, col, false, c.modo));
    EXPECT_EQ(fila, -1);
    EXPECT_EQ(avisos, std::vector<std::string>{Buscador::kArgumentosNoValidos});
    EXPECT_FALSE(ed.Doc().HaySel());
  }
}

TEST_F(BuscadorSearch, AcrossRowsContinuingAfterEachMatch) {
  Carga({"a", "año x", "X·x"});
  int fila = 0, col = 0;
  ASSERT_TRUE(bus.Search("x", fila, col, false, 0));
  EXPECT_EQ(fila, 1);
  EXPECT_EQ(col, 5); // characters, not UTF-8 bytes
  EXPECT_EQ(ed.Doc().GetTextSel(), "x");
  EXPECT_EQ(ed.Doc().InicioSel(), (Posicion{1, 4}));
  ASSERT_TRUE(bus.Search("x", fila, col, false, 0));
  EXPECT_EQ(ed.Doc().InicioSel(), (Posicion{2, 2}));
  EXPECT_FALSE(bus.Search("x", fila, col, false, 0));
  EXPECT_EQ(fila, -1);
  EXPECT_EQ(avisos, std::vector<std::string>{Buscador::kNoEncontrado});
  fila = 0, col = std::numeric_limits<int>::max(); // far past the row: go on below
  ASSERT_TRUE(bus.Search("x", fila, col, false, 0));
  EXPECT_EQ(ed.Doc().InicioSel(), (Posicion{1, 4}));
}

TEST_F(BuscadorSearch, TextsThatCannotBeFound) {
  // Row 1 holds the byte that stands in for characters outside the code page.
  Carga({"abc", std::string("\xC2\x81")});
  for (const char* texto : {"", "Ω", "zz"}) {
    SCOPED_TRACE(texto);
    avisos.clear();
    int fila = 0, col = 0, filaR = 0, colR = 0;
    EXPECT_FALSE(bus.Search(texto, fila, col, false, 0));
    EXPECT_EQ(bus.Reemp(texto, "y", filaR, colR, false, 0, ModoReemplazo::Todos), 0);
    EXPECT_EQ(fila, -1);
    EXPECT_EQ(filaR, -1);
    EXPECT_EQ(avisos, std::vector<std::string>(2, Buscador::kNoEncontrado));
  }
  EXPECT_EQ(ed.Hist().TextoDeshacer(), "No se puede deshacer");
}

TEST_F(BuscadorSearch, NextRepeatsTextAndOptionsFromCursor) {
  Carga({"x max x", "x"});
  EXPECT_FALSE(bus.BuscarSiguiente()); // nothing sought yet
  EXPECT_TRUE(avisos.empty());
  int fila = 0, col = 0;
  ASSERT_TRUE(bus.Search("X", fila, col, true, 1));
  ASSERT_TRUE(bus.BuscarSiguiente());
  EXPECT_EQ(ed.Doc().InicioSel(), (Posicion{0, 6})); // whole word: not inside max
  ed.Pulsa(0, 0, false);
  ASSERT_TRUE(bus.BuscarSiguiente());
  EXPECT_EQ(ed.Doc().InicioSel(), (Posicion{0, 0}));
}

// Each answer, all of the call in one undo record. Cancel leaves the match
// asked about selected; a replacement the document cannot store is told
// once and ends the call.
TEST_F(BuscadorReemp, AnswersOneByOne) {
  using enum Respuesta;
  // clang-format off
  const struct {
    std::vector<Respuesta> respuestas; const char *reemp, *texto; int hechos, preguntas;
    std::size_t avisos; const char* seleccion;
  } casos[] = {
      {{Si, Si, Si}, "y", "y y\r\ny", 3, 3, 0, nullptr},
      {{No, Si, No}, "y", "x y\r\nx", 1, 3, 0, nullptr},
      {{No, No, No}, "y", "x x\r\nx", 0, 3, 0, nullptr},
      {{Si, Cancelar}, "y", "y x\r\nx", 1, 2, 0, "x"},
      {{Cancelar}, "y", "x x\r\nx", 0, 1, 0, "x"},
      {{Si, Si}, "Ω", "x x\r\nx", 0, 1, 1, nullptr},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(testing::Message() << c.texto << " after " << c.preguntas);
    Carga({"x x", "x"});
    respuestas = c.respuestas;
    preguntas = 0;
    avisos.clear();
    EXPECT_EQ(Reemplaza("x", c.reemp, ModoReemplazo::UnoAUno), c.hechos);
    EXPECT_EQ(Texto(), c.texto);
    EXPECT_EQ(preguntas, c.preguntas);
    EXPECT_EQ(avisos.size(), c.avisos); // matches were found, even if left
    if (c.seleccion) {
      EXPECT_EQ(ed.Doc().GetTextSel(), c.seleccion);
    }
    ed.Deshacer();
    EXPECT_EQ(Texto(), "x x\r\nx");
    EXPECT_EQ(ed.Hist().TextoDeshacer(), "No se puede deshacer");
  }
}

TEST_F(BuscadorReemp, ShorterRowKeepsCursorAndSelectionInside) {
  Carga({"abc"});
  respuestas = {Respuesta::Si};
  EXPECT_EQ(Reemplaza("abc", "", ModoReemplazo::UnoAUno), 1);
  const Documento& d = ed.Doc();
  EXPECT_EQ(d.Cursor(), (Posicion{0, 0}));
  EXPECT_TRUE(!d.HaySel() || d.FinSel().col <= d.LongFila(d.FinSel().fila));
}

TEST_F(BuscadorReemp, ReplaceAllUndoneAndRedoneInOneStep) {
  Carga({"x + x", "y = x^2", "", "Sin(x)"});
  ed.EditaCmd(kEscribir, "z");
  const std::string antes = Texto();
  EXPECT_EQ(Reemplaza("x", "xx", ModoReemplazo::Todos), 4);
  const std::string despues = "zxx + xx\r\ny = xx^2\r\n\r\nSin(xx)";
  EXPECT_EQ(Texto(), despues);
  EXPECT_EQ(ed.Hist().TextoDeshacer(), "Deshacer reemplazar");
  ed.Deshacer();
  EXPECT_EQ(Texto(), antes);
  EXPECT_EQ(ed.Hist().TextoDeshacer(), "Deshacer escribir");
  EXPECT_EQ(ed.Hist().TextoRehacer(), "Rehacer reemplazar");
  ed.Rehacer();
  EXPECT_EQ(Texto(), despues);
}

TEST_F(BuscadorReemp, ReplaceAllCases) {
  const struct {
    const char *fila, *texto, *reemp;
    bool palabra;
    int modo;
    const char* resultado;
    int hechos;
  } casos[] = {
      {"aaaa", "aa", "", false, 0, "", 2},         {"max x", "x", "y", true, 0, "max y", 1},
      {"X x", "x", "ñ", false, 1, "ñ ñ", 2},       {"año", "a", "á", false, 0, "áño", 1},
      {"abc abc", "abc", "x", false, 0, "x x", 2},
  };
  for (const auto& c : casos) {
    Carga({c.fila});
    EXPECT_EQ(Reemplaza(c.texto, c.reemp, ModoReemplazo::Todos, c.palabra, c.modo), c.hechos);
    EXPECT_EQ(Texto(), c.resultado) << c.fila;
  }
}

TEST_F(BuscadorReemp, RowLimitSkipsTheRowAndGoesOn) {
  const std::string larga(255, 'a');
  Carga({larga + "x", larga + "x", "x"});
  EXPECT_EQ(Reemplaza("x", "yy", ModoReemplazo::Todos), 1);
  EXPECT_EQ(Texto(), larga + "x\r\n" + larga + "x\r\nyy");
  ASSERT_EQ(avisos.size(), 1u); // told once, not once per row
  EXPECT_NE(avisos[0].find("256"), std::string::npos);
}

} // namespace
