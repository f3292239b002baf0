// The editing commands on a window-free editor. Most cases are written as a
// picture of the document: rows separated by "\n", "|" for the cursor, "["
// for the selection's anchor and "]" for its moving end; the picture read
// back shows "[" at the selection's first end and "]" at its last.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "editor/Editor.h"
#include "lang/Cp1252.h"

namespace {

// The UTF-8 characters of a text, one string each.
std::vector<std::string> Caracteres(const std::string& utf8) {
  std::vector<std::string> out;
  for (std::size_t i = 0; i < utf8.size();) {
    const auto b = static_cast<unsigned char>(utf8[i]);
    const std::size_t n = b >= 0xF0 ? 4 : b >= 0xE0 ? 3 : b >= 0xC0 ? 2 : 1;
    out.push_back(utf8.substr(i, n));
    i += n;
  }
  return out;
}

void Prepara(Editor& ed, const std::string& dibujo) {
  std::vector<std::string> filas(1);
  Posicion cursor{-1, 0}, ancla{-1, 0}, extremo{-1, 0};
  for (const std::string& c : Caracteres(dibujo)) {
    const Posicion aqui{static_cast<int>(filas.size()) - 1, static_cast<int>(filas.back().size())};
    if (c == "\n")
      filas.emplace_back();
    else if (c == "|")
      cursor = aqui;
    else if (c == "[")
      ancla = aqui;
    else if (c == "]")
      extremo = aqui;
    else
      filas.back() += Utf8ACp1252(c);
  }
  ed.Carga(filas);
  if (cursor.fila < 0) cursor = extremo.fila >= 0 ? extremo : Posicion{};
  ed.Doc().MueveCursor(cursor.fila, cursor.col);
  if (ancla.fila >= 0) ed.Doc().FijaSeleccion(ancla, extremo);
}

std::string Dibujo(const Editor& ed) {
  const Documento& d = ed.Doc();
  std::string out;
  for (int f = 0; f < d.NumFilas(); ++f) {
    if (f > 0) out += "\n";
    for (int c = 0; c <= d.LongFila(f); ++c) {
      const Posicion p{f, c};
      if (d.HaySel() && p == d.InicioSel()) out += "[";
      if (p == d.Cursor()) out += "|";
      if (d.HaySel() && p == d.FinSel()) out += "]";
      if (c < d.LongFila(f)) out += Cp1252AUtf8(std::string(1, static_cast<char>(d.Fila(f)[c])));
    }
  }
  return out;
}

Editor Con(const std::string& dibujo) {
  Editor ed;
  Prepara(ed, dibujo);
  return ed;
}

void Escribe(Editor& ed, const std::string& utf8) {
  for (const std::string& c : Caracteres(utf8))
    ed.EditaCmd(kEscribir, c);
}

std::string Texto(const Editor& ed) { return ed.Doc().TextoDocumento(); }
std::string Fila(int n, char c) { return std::string(static_cast<std::size_t>(n), c); }

// One hexadecimal digit per cell: its colour index; "." for a blank, whose
// colour never shows.
std::string ColoresFila(const Editor& ed, int fila) {
  std::string out;
  for (const Celda c : ed.Doc().Fila(fila))
    out += (c & 0xFF) == ' ' ? '.' : "0123456789abcdef"[c >> 8];
  return out;
}

TEST(Editor, TypingInsertsOrOverwrites) {
  // clang-format off
  const struct { const char* antes; bool insertar; const char* texto; const char* despues; } casos[] = {
      {"a|c", true, "b", "ab|c"},
      {"a|bc", false, "X", "aX|c"},
      {"a|bc", false, "XYZ", "aXYZ|"},   // past the end overwriting adds cells
      {"|", true, "año·€", "año·€|"},
      {"a[bc]d", true, "X", "aX|d"},      // the selection gives way in either mode
      {"a[b\nc]d", false, "X", "aX|d"},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.antes);
    Editor ed = Con(c.antes);
    ed.ModoInsertar(c.insertar);
    Escribe(ed, c.texto);
    EXPECT_EQ(Dibujo(ed), c.despues);
  }
  Editor ed = Con("|");
  ed.Colores(7, 12, 10);
  Escribe(ed, "á");
  EXPECT_EQ(ed.Doc().Fila(0)[0], 7 * 256 + 0xE1);
}

TEST(Editor, FullRowTakesNoMoreCharacters) {
  // clang-format off
  const struct { int largo, col; bool insertar, hecho; } casos[] = {
      {256, 256, true, false}, {256, 256, false, false}, {256, 100, true, false},
      {256, 100, false, true}, {255, 255, true, true},   {255, 0, true, true},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(testing::Message() << c.largo << " " << c.col << " " << c.insertar);
    Editor ed = Con(Fila(c.largo, 'x'));
    ed.Doc().MueveCursor(0, c.col);
    ed.ModoInsertar(c.insertar);
    EXPECT_EQ(ed.EditaCmd(kEscribir, "a").hecho, c.hecho);
    EXPECT_EQ(ed.Doc().LongFila(0), c.hecho && c.insertar ? c.largo + 1 : c.largo);
    EXPECT_EQ(ed.Doc().GetTextFila(0).find('a') != std::string::npos, c.hecho);
    EXPECT_EQ(ed.Modificado(), c.hecho);
    EXPECT_EQ(ed.Hist().PosHistorial(), c.hecho ? 0 : -1);
  }
}

TEST(Editor, ControlCharactersAreNotTyped) {
  // Enter, Backspace and Tab arrive as commands; their characters in a cell
  // would be read back as line breaks that the rows do not have.
  for (const char* c : {"\r", "\n", "\b", "\t", "\x1b"}) {
    SCOPED_TRACE(testing::PrintToString(c));
    Editor ed = Con("a|b");
    EXPECT_FALSE(ed.EditaCmd(kEscribir, c).hecho);
    EXPECT_EQ(Dibujo(ed), "a|b");
  }
}

TEST(Editor, DeletingJoinsRowsOnlyWithinTheLimit) {
  const std::string a200 = Fila(200, 'a'), b56 = Fila(56, 'b'), b57 = Fila(57, 'b');
  // clang-format off
  const struct { std::string antes; int codigo; std::string despues; } casos[] = {
      {"ab\n|cd", kRetroceso, "ab|cd"},
      {"ab|\ncd", kSuprimir, "ab|cd"},
      {"|ab", kRetroceso, "|ab"},
      {"ab|", kSuprimir, "ab|"},
      {"a|b", kRetroceso, "|b"},
      {"a|b", kSuprimir, "a|"},
      {"a[b\nc]d", kEliminarSel, "a|d"},
      {a200 + "\n|" + b56, kRetroceso, a200 + "|" + b56},   // exactly 256
      {a200 + "|\n" + b56, kSuprimir, a200 + "|" + b56},
      {a200 + "\n|" + b57, kRetroceso, a200 + "\n|" + b57}, // 257: refused
      {a200 + "|\n" + b57, kSuprimir, a200 + "|\n" + b57},
      // Removing a selection across a line break joins rows just the same.
      {a200 + "[\n]" + b56, kEliminarSel, a200 + "|" + b56},
      {a200 + "[\n|]" + b57, kEliminarSel, a200 + "[\n|]" + b57},
      {a200 + "[\n|]" + b57, kRetroceso, a200 + "[\n|]" + b57},
      {a200 + "[\n|]" + b57, kSuprimir, a200 + "[\n|]" + b57},
      {"a" + a200 + "]|\nx\n[" + b57, kCortar, "a" + a200 + "[|\nx\n]" + b57},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.antes);
    Editor ed = Con(c.antes);
    ed.EditaCmd(c.codigo);
    EXPECT_EQ(Dibujo(ed), c.despues);
  }
}

TEST(Editor, EnterAndTab) {
  // clang-format off
  const struct { int espTab; const char* antes; bool tab; const char* despues; } casos[] = {
      {4, "ab|cd", false, "ab\n|cd"},
      {4, "|", false, "\n|"},
      {4, "a[bc]d", false, "a\n|d"},
      {4, "|x", true, "    |x"},
      {4, "a|", true, "a   |"},
      {4, "abcd|", true, "abcd    |"},
      {3, "abcde|", true, "abcde |"},
      {4, "a[bc]d", true, "a   |d"},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.antes);
    Editor ed = Con(c.antes);
    ed.EspTab(c.espTab);
    c.tab ? ed.InsertaTab() : ed.EditaCmd(kSaltoLinea);
    EXPECT_EQ(Dibujo(ed), c.despues);
  }
  Editor ed = Con(Fila(254, 'x') + "|");
  EXPECT_TRUE(ed.InsertaTab().hecho); // two blanks reach 256
  EXPECT_EQ(ed.Doc().LongFila(0), 256);
  ed = Con("|" + Fila(253, 'x'));
  EXPECT_FALSE(ed.InsertaTab().hecho); // four blanks would make 257
}

TEST(Editor, MovingWithAndWithoutShift) {
  Editor ed = Con("a|bc\ndef");
  // clang-format off
  const struct { int codigo; bool mayus; const char* despues; } pasos[] = {
      {kDerecha, true, "a[b|]c\ndef"},
      {kAbajo, true, "a[bc\nde|]f"},
      {kFin, true, "a[bc\ndef|]"},
      {kArriba, true, "a[bc|]\ndef"},
      {kInicio, true, "[|a]bc\ndef"},   // the anchor stays put
      {kIzquierda, false, "|abc\ndef"},
      {kIzquierda, true, "|abc\ndef"},  // nothing to the left: no selection
      {kFin, false, "abc|\ndef"},
      {kDerecha, false, "abc\n|def"},   // from a row's end to the next row
      {kIzquierda, true, "abc[|\n]def"},
      {kAbajo, false, "abc\ndef|"},
      {kDerecha, false, "abc\ndef|"},
  };
  // clang-format on
  for (const auto& p : pasos) {
    ed.MueveCursorCmd(p.codigo, p.mayus);
    EXPECT_EQ(Dibujo(ed), p.despues);
  }
  EXPECT_FALSE(ed.Modificado());
  EXPECT_EQ(ed.Hist().PosHistorial(), -1);
}

TEST(Editor, PageDownAndPageUp) {
  Editor ed = Con("fila0|\n1\nfila2\n3\nfila4\n5\nfila6\n7\nfila8\nfila9");
  const struct {
    int codigo;
    Posicion despues;
  } pasos[] = {{kAvPag, {4, 5}}, {kAvPag, {8, 5}}, {kAvPag, {9, 5}}, {kRePag, {5, 1}},
               {kRePag, {1, 1}}, {kRePag, {0, 1}}, {kAvPag, {4, 1}}};
  for (const auto& p : pasos) {
    ed.MueveCursorCmd(p.codigo, false, 4);
    EXPECT_EQ(ed.Doc().Cursor(), p.despues);
  }
  ed.MueveCursorCmd(kAvPag, true, 4);
  EXPECT_EQ(ed.Doc().GetTextSel(), "ila4\r\n5\r\nfila6\r\n7\r\nf");
}

TEST(Editor, DoubleClickSelectsTheWord) {
  // Columns: año 0-2, "2·x" 6-8, dy_dx 12-16, aÜb 20-22 (Ü is no word letter).
  Editor ed = Con("año = 2·x + dy_dx - aÜb");
  // clang-format off
  const struct { int col; const char* palabra; } casos[] = {
      {0, "año"}, {1, "año"}, {3, "año"}, {4, ""}, {6, "2"}, {7, "2"}, {8, "x"},
      {14, "dy_dx"}, {17, "dy_dx"}, {21, "a"}, {22, "b"}, {23, "b"},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.col);
    ed.Pulsa(0, c.col, false);
    ed.SeleccionaPalabra();
    EXPECT_EQ(ed.Doc().GetTextSel(), c.palabra);
  }
}

TEST(Editor, MouseClickAndDrag) {
  Editor ed = Con("abc\ndef");
  ed.Pulsa(0, 1, false);
  EXPECT_EQ(Dibujo(ed), "a|bc\ndef");
  ed.Arrastra(1, 2);
  EXPECT_EQ(Dibujo(ed), "a[bc\nde|]f");
  ed.Arrastra(0, 0);
  EXPECT_EQ(Dibujo(ed), "[|a]bc\ndef");
  ed.Pulsa(1, 3, false);
  ed.Pulsa(0, 2, true); // Shift extends from where the cursor was
  EXPECT_EQ(Dibujo(ed), "ab[|c\ndef]");
  ed.Pulsa(9, 9, false);
  EXPECT_EQ(Dibujo(ed), "abc\ndef|");
}

TEST(Editor, RefusedInsertionsChangeNothing) {
  const std::string largo = Fila(250, 'x');
  // clang-format off
  const struct { std::string antes, texto, enAviso; } casos[] = {
      {"ab|cd", "x→y", "→"},
      {"ab|cd", "😀", "😀"},
      {largo + "|", "1234567", "256"},          // the row would have 257 cells
      {"|" + largo, "\n1234567", "256"},
      {"a[b]c", "\n" + largo + "1234567\n", "256"}, // a new row too long
      // A row loaded longer than the limit does not lend it to new rows.
      {Fila(150, 'x') + "|" + Fila(150, 'x'), "\n" + Fila(257, 'y') + "\n", "256"},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.texto);
    for (const bool escribe : {false, true}) {
      Editor ed = Con(c.antes);
      const Resultado r = escribe ? ed.EscribeTexto(c.texto) : ed.EditaCmd(kPegar, c.texto);
      EXPECT_FALSE(r.hecho);
      EXPECT_NE(r.aviso.find(c.enAviso), std::string::npos) << r.aviso;
      EXPECT_EQ(Dibujo(ed), Dibujo(Con(c.antes)));
      EXPECT_FALSE(ed.Modificado());
      EXPECT_EQ(ed.Hist().TextoDeshacer(), "No se puede deshacer");
    }
  }
  Editor ed = Con("a|b");
  EXPECT_FALSE(ed.EditaCmd(kEscribir, "→").hecho);
  EXPECT_EQ(Dibujo(ed), "a|b");
}

TEST(Editor, EveryChangeUndoesAndRedoesInOneStep) {
  using Accion = std::function<void(Editor&)>;
  const auto teclas = [](int codigo, int veces) {
    return [=](Editor& ed) {
      for (int i = 0; i < veces; ++i)
        ed.EditaCmd(codigo);
    };
  };
  // clang-format off
  const struct { const char* antes; Accion accion; const char* palabra; } casos[] = {
      {"x = |", [](Editor& ed) { Escribe(ed, "sin(año)"); }, "escribir"},
      {"|abc", [](Editor& ed) { ed.ModoInsertar(false); Escribe(ed, "XYZW"); }, "escribir"},
      {"a[bc]d", [](Editor& ed) { Escribe(ed, "XY"); }, "escribir"},
      {"a|", [](Editor& ed) { ed.InsertaTab(); }, "escribir"},
      {"ab\ncd|", teclas(kRetroceso, 4), "eliminar"},
      {"a|b\ncd", teclas(kSuprimir, 3), "eliminar"},
      {"a[b\nc]d", teclas(kEliminarSel, 1), "eliminar"},
      {"a[b\nc]d", teclas(kCortar, 1), "cortar"},
      {"a[b]c", [](Editor& ed) { ed.EditaCmd(kPegar, "X\nY\rZ"); }, "pegar"},
      {"ab|cd", teclas(kSaltoLinea, 1), ""},
      {"y = x^2|", [](Editor& ed) {
         ed.EscribeTexto("\r\n'Derivada hallada:\r\n'dy/dx = 2*x"); }, "escribir"},
      {"y = sin(x) + sin(x)|", [](Editor& ed) {
         ed.ReemplazaEnFila(0, 4, 3, "cos", kReemplazar, false); }, "reemplazar"},
      {"y = sin(x) + sin(x)|", [](Editor& ed) {
         ed.ReemplazaEnFila(0, 4, 3, "Cosec", kReemplazarTodo, false);
         ed.ReemplazaEnFila(0, 15, 3, "Cosec", kReemplazarTodo, true); }, "reemplazar"},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.antes);
    Editor ed = Con(c.antes);
    const std::string antes = Texto(ed);
    c.accion(ed);
    const std::string despues = Texto(ed), deshacer = std::string("Deshacer ") + c.palabra,
                      rehacer = std::string("Rehacer ") + c.palabra;
    EXPECT_NE(despues, antes);
    EXPECT_EQ(ed.Hist().PosHistorial(), 0); // one record, however many keys
    EXPECT_EQ(ed.Hist().TextoDeshacer(), deshacer);
    EXPECT_EQ(ed.Hist().TextoRehacer(), "No se puede rehacer");
    ed.Deshacer();
    EXPECT_EQ(Texto(ed), antes);
    EXPECT_EQ(ed.Hist().TextoDeshacer(), "No se puede deshacer");
    EXPECT_EQ(ed.Hist().TextoRehacer(), rehacer);
    ed.Deshacer();
    EXPECT_EQ(Texto(ed), antes);
    ed.Rehacer();
    EXPECT_EQ(Texto(ed), despues);
    EXPECT_EQ(ed.Hist().TextoDeshacer(), deshacer);
    EXPECT_EQ(ed.Hist().TextoRehacer(), "No se puede rehacer");
  }
  Editor ed = Con("a[b\nc]d");
  ed.EditaCmd(kCortar);
  EXPECT_EQ(ed.CortadoCopiado(), "b\r\nc");
}

TEST(Editor, OnlyTheLast32ChangesUndo) {
  Editor ed = Con("|");
  std::vector<std::string> textos{Texto(ed)};
  for (int i = 0; i < 40; ++i) {
    ed.MueveCursorCmd(kInicio, false); // typing elsewhere starts a new record
    Escribe(ed, std::string(1, static_cast<char>('A' + i % 26)));
    textos.push_back(Texto(ed));
  }
  EXPECT_EQ(ed.Hist().UltHistorial(), 31);
  for (int i = 39; i >= 8; --i) {
    ASSERT_EQ(ed.Hist().TextoDeshacer(), "Deshacer escribir");
    ed.Deshacer();
    EXPECT_EQ(Texto(ed), textos[static_cast<std::size_t>(i)]);
  }
  EXPECT_EQ(ed.Hist().TextoDeshacer(), "No se puede deshacer");
  ed.Deshacer();
  EXPECT_EQ(Texto(ed), textos[8]);
  for (int i = 0; i < 32; ++i)
    ed.Rehacer();
  EXPECT_EQ(Texto(ed), textos[40]);
  EXPECT_EQ(ed.Hist().TextoRehacer(), "No se puede rehacer");
}

TEST(Editor, ANewChangeDiscardsRedo) {
  Editor ed = Con("|");
  Escribe(ed, "a");
  ed.EditaCmd(kSaltoLinea);
  Escribe(ed, "b");
  ed.Deshacer();
  ed.Deshacer();
  EXPECT_EQ(ed.Hist().TextoRehacer(), "Rehacer ");
  Escribe(ed, "c"); // where "a" ended: it continues that record
  EXPECT_EQ(Texto(ed), "ac");
  EXPECT_EQ(ed.Hist().UltHistorial(), 0);
  EXPECT_EQ(ed.Hist().TextoRehacer(), "No se puede rehacer");
  ed.Rehacer();
  EXPECT_EQ(Texto(ed), "ac");
  ed.Deshacer();
  EXPECT_EQ(Texto(ed), "");
}

TEST(Editor, ModifiedByChangesAndByUndo) {
  Editor ed = Con("ab|");
  ed.MueveCursorCmd(kInicio, true);
  ed.EditaCmd(kSuprimir, "");
  EXPECT_TRUE(ed.Modificado());
  ed.Modificado(false); // as saving does
  ed.Deshacer();
  EXPECT_TRUE(ed.Modificado());
  ed.Modificado(false);
  ed.Rehacer();
  EXPECT_TRUE(ed.Modificado());
  ed.Nuevo();
  EXPECT_FALSE(ed.Modificado());
  EXPECT_EQ(Dibujo(ed), "|");
  EXPECT_EQ(ed.Hist().TextoDeshacer(), "No se puede deshacer");
}

TEST(Editor, ColouringPass) {
  // Text colour 7, keywords c, comments a.
  // clang-format off
  const struct { const char* fila; const char* colores; } casos[] = {
      {"'comentario", "aaaaaaaaaaa"},
      {"y = sin(x)", "7.7.ccc777"},
      {"Y = SIN(x)+Cos(PI*e)", "7.7.ccc7777ccc7cc7c7"},
      {"x2 = 3.5*sinx - sen(x)", "77.7.77777777.7.777777"},
      {"y = x ' sin", "7.7.7.a.aaa"},
      {"€ sin(x)", "7.ccc777"}, // an unknown character does not stop the pass
  };
  // clang-format on
  for (const auto& c : casos) {
    Editor ed;
    ed.Colores(7, 12, 10);
    Prepara(ed, c.fila);
    EXPECT_EQ(ColoresFila(ed, 0), c.colores) << c.fila;
  }
}

TEST(Editor, RecolouringFollowsEdits) {
  Editor ed;
  ed.Colores(7, 12, 10);
  Prepara(ed, "y = si|(x)");
  Escribe(ed, "n");
  EXPECT_EQ(ColoresFila(ed, 0), "7.7.ccc777");
  ed.EditaCmd(kRetroceso);
  EXPECT_EQ(ColoresFila(ed, 0), "7.7.77777");
  ed.MueveCursorCmd(kInicio, false);
  Escribe(ed, "'");
  EXPECT_EQ(ColoresFila(ed, 0), "aa.a.aaaaa");
  ed.Deshacer();
  EXPECT_EQ(ColoresFila(ed, 0), "7.7.77777");
  Prepara(ed, "'ab |sin");
  ed.EditaCmd(kSaltoLinea);
  EXPECT_EQ(ColoresFila(ed, 0) + "/" + ColoresFila(ed, 1), "aaa./ccc");
  ed.EditaCmd(kRetroceso);
  EXPECT_EQ(ColoresFila(ed, 0), "aaa.aaa");
  ed.Colores(1, 2, 3); // new colours retint the whole document
  EXPECT_EQ(ColoresFila(ed, 0), "333.333");
}

TEST(Editor, ReplacingKeepsTheSelectionInsideTheRow) {
  Editor ed = Con("ab [xyz]");
  EXPECT_TRUE(ed.ReemplazaEnFila(0, 3, 3, "q", kReemplazar, false).hecho);
  EXPECT_EQ(Texto(ed), "ab q");
  const Documento& d = ed.Doc();
  EXPECT_LE(d.Cursor().col, 4);
  if (d.HaySel()) {
    EXPECT_LE(d.Sel1().col, 4);
    EXPECT_LE(d.Sel2().col, 4);
  }
  EXPECT_FALSE(ed.ReemplazaEnFila(0, 0, 1, "a\nb", kReemplazar, false).hecho);
  ed = Con(Fila(250, 'x'));
  EXPECT_FALSE(ed.ReemplazaEnFila(0, 0, 1, "12345678", kReemplazar, false).hecho);
  EXPECT_EQ(ed.Doc().LongFila(0), 250);
}

TEST(Editor, ViewIsToldWhichRowsToDraw) {
  Editor ed = Con("0\n1\n2\n3\n4\n5|\n6");
  ed.TomaCambios();
  Escribe(ed, "x");
  auto c = ed.TomaCambios();
  EXPECT_EQ(c.desde, 5);
  EXPECT_EQ(c.hasta, 5);
  EXPECT_EQ(ed.TomaCambios().desde, -1);
  ed.EditaCmd(kSaltoLinea); // the rows below move down
  c = ed.TomaCambios();
  EXPECT_EQ(c.desde, 5);
  EXPECT_EQ(c.hasta, -1);
  // Rows that lose the selection's highlight or the cursor are drawn again.
  using Accion = std::function<void(Editor&)>;
  const auto mueve = [](std::vector<int> codigos, bool mayus) {
    return [=](Editor& ed) {
      for (const int codigo : codigos)
        ed.MueveCursorCmd(codigo, mayus, 3);
    };
  };
  const Accion deshace = [](Editor& ed) { ed.Deshacer(); };
  // clang-format off
  const struct { Accion antes, accion; int fila; } casos[] = {
      {[&](Editor& ed) { Escribe(ed, "x"); mueve({kAbajo, kAbajo}, false)(ed);
                         mueve({kInicio}, true)(ed); }, deshace, 2},
      {[&](Editor& ed) { Escribe(ed, "x"); mueve({kAvPag}, false)(ed); }, deshace, 3},
      {mueve({kAbajo, kAbajo, kAbajo}, true), mueve({kDerecha}, false), 0},
  };
  // clang-format on
  for (const auto& caso : casos) {
    Prepara(ed, "|0\n1\n2\n3");
    caso.antes(ed);
    ed.TomaCambios();
    caso.accion(ed);
    c = ed.TomaCambios();
    EXPECT_LE(c.desde, caso.fila);
    EXPECT_TRUE(c.hasta < 0 || c.hasta >= caso.fila) << c.hasta;
  }
}

} // namespace
