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

// The drawing's characters as the rows hold them, one byte each; the marks
// are ASCII.
void Prepara(Editor& ed, const std::string& dibujo) {
  std::vector<std::string> filas(1);
  Posicion cursor{-1, 0}, ancla{-1, 0}, extremo{-1, 0};
  for (const char c : Utf8ACp1252(dibujo)) {
    const Posicion aqui{static_cast<int>(filas.size()) - 1, static_cast<int>(filas.back().size())};
    if (c == '\n')
      filas.emplace_back();
    else if (c == '|')
      cursor = aqui;
    else if (c == '[')
      ancla = aqui;
    else if (c == ']')
      extremo = aqui;
    else
      filas.back() += c;
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

// Types each character of a UTF-8 text; the first refusal, if any.
Resultado Escribe(Editor& ed, const std::string& utf8) {
  Resultado r;
  for (std::size_t i = 0, n = 1; i < utf8.size(); i += n, n = 1) {
    while (i + n < utf8.size() && (static_cast<unsigned char>(utf8[i + n]) & 0xC0) == 0x80)
      ++n;
    const Resultado tecla = ed.EditaCmd(kEscribir, utf8.substr(i, n));
    if (r.hecho) r = tecla;
  }
  return r;
}

std::string Texto(const Editor& ed) { return ed.Doc().TextoDocumento(); }
// The text with the captions of the undo and redo commands.
std::string Historia(const Editor& ed) {
  return Texto(ed) + " | " + ed.Hist().TextoDeshacer() + " | " + ed.Hist().TextoRehacer();
}
std::string Fila(int n, char c) { return std::string(static_cast<std::size_t>(n), c); }

// One hexadecimal digit per cell: its colour index; "." for a blank, whose
// colour never shows.
std::string ColoresFila(const Editor& ed, int fila) {
  std::string out;
  for (const Celda c : ed.Doc().Fila(fila))
    out += (c & 0xFF) == ' ' ? '.' : "0123456789abcdef"[c >> 8];
  return out;
}

// Typing (in insert or overwrite mode), deleting, Enter, Tab, pasting and
// text written by a command. A command that changes the text makes one
// record; a refused one leaves no trace. The message of a refusal holds
// `aviso`; a single key typed or deleted is refused silently.
TEST(Editor, EditingCommands) {
  constexpr int kSobrescribir = -1, kTab = -2, kTextoEscrito = -3;
  const std::string x100 = Fila(100, 'x'), x156 = Fila(156, 'x'), x255 = Fila(255, 'x'),
                    x256 = Fila(256, 'x'), a200 = Fila(200, 'a'), b56 = Fila(56, 'b'),
                    b57 = Fila(57, 'b'), x150 = Fila(150, 'x'), x250 = Fila(250, 'x');
  // clang-format off
  const struct { std::string antes; int orden; std::string texto, despues, aviso = ""; } casos[] = {
      {"a|c", kEscribir, "b", "ab|c"},
      {"a|bc", kSobrescribir, "X", "aX|c"},
      {"a|bc", kSobrescribir, "XYZ", "aXYZ|"},   // past the end overwriting adds cells
      {"|", kEscribir, "año·€", "año·€|"},
      {"a[bc]d", kEscribir, "X", "aX|d"},        // the selection gives way in either mode
      {"a[b\nc]d", kSobrescribir, "X", "aX|d"},
      // A full row takes no more characters, but overwriting within it works.
      {x256 + "|", kEscribir, "a", x256 + "|"}, {x256 + "|", kSobrescribir, "a", x256 + "|"},
      {x100 + "|" + x156, kEscribir, "a", x100 + "|" + x156},
      {x100 + "|" + x156, kSobrescribir, "a", x100 + "a|" + Fila(155, 'x')},
      {x255 + "|", kEscribir, "a", x255 + "a|"}, {"|" + x255, kEscribir, "a", "a|" + x255},
      // Enter, Backspace and Tab arrive as commands: their characters in a
      // cell would be read back as line breaks that the rows do not have.
      // "→" has no cell in the code page.
      {"a|b", kEscribir, "\r", "a|b"}, {"a|b", kEscribir, "\n", "a|b"},
      {"a|b", kEscribir, "\b", "a|b"}, {"a|b", kEscribir, "\t", "a|b"},
      {"a|b", kEscribir, "\x1b", "a|b"}, {"a|b", kEscribir, "→", "a|b"},
      // Deleting joins rows only within the limit.
      {"ab\n|cd", kRetroceso, "", "ab|cd"}, {"ab|\ncd", kSuprimir, "", "ab|cd"},
      {"|ab", kRetroceso, "", "|ab"},         {"ab|", kSuprimir, "", "ab|"},
      {"a|b", kRetroceso, "", "|b"},          {"a|b", kSuprimir, "", "a|"},
      {"a[b\nc]d", kEliminarSel, "", "a|d"},
      {a200 + "\n|" + b56, kRetroceso, "", a200 + "|" + b56},   // exactly 256
      {a200 + "|\n" + b56, kSuprimir, "", a200 + "|" + b56},
      {a200 + "\n|" + b57, kRetroceso, "", a200 + "\n|" + b57}, // 257: refused
      {a200 + "|\n" + b57, kSuprimir, "", a200 + "|\n" + b57},
      // Removing a selection across a line break joins rows just the same.
      {a200 + "[\n]" + b56, kEliminarSel, "", a200 + "|" + b56},
      {a200 + "[\n|]" + b57, kEliminarSel, "", a200 + "[\n|]" + b57, "256"},
      {a200 + "[\n|]" + b57, kRetroceso, "", a200 + "[\n|]" + b57, "256"},
      {a200 + "[\n|]" + b57, kSuprimir, "", a200 + "[\n|]" + b57, "256"},
      {"a" + a200 + "]|\nx\n[" + b57, kCortar, "", "a" + a200 + "[|\nx\n]" + b57, "256"},
      // Enter, and Tab to the next stop of 4.
      {"ab|cd", kSaltoLinea, "", "ab\n|cd"}, {"|", kSaltoLinea, "", "\n|"},
      {"a[bc]d", kSaltoLinea, "", "a\n|d"},  {"a[bc]d", kTab, "", "a   |d"},
      {"|x", kTab, "", "    |x"}, {"a|", kTab, "", "a   |"}, {"abcd|", kTab, "", "abcd    |"},
      {Fila(254, 'x') + "|", kTab, "", Fila(254, 'x') + "  |"}, // two blanks reach 256
      {"|" + Fila(253, 'x'), kTab, "", "|" + Fila(253, 'x')},   // four would make 257
      // Pasting and writing take every kind of line break, or nothing at all.
      {"a[b]c", kPegar, "X\nY\rZ\r\nW", "aX\nY\nZ\nW|c"},
      {"y = x^2|", kTextoEscrito, "\r\n'dy/dx = 2*x", "y = x^2\n'dy/dx = 2*x|"},
      {"ab|cd", kPegar, "x→y", "ab|cd", "→"}, {"ab|cd", kTextoEscrito, "x→y", "ab|cd", "→"},
      {"ab|cd", kPegar, "😀", "ab|cd", "😀"},  {"ab|cd", kTextoEscrito, "😀", "ab|cd", "😀"},
      {x250 + "|", kPegar, "1234567", x250 + "|", "256"},  // the row would have 257 cells
      {x250 + "|", kTextoEscrito, "1234567", x250 + "|", "256"},
      {"|" + x250, kPegar, "\n1234567", "|" + x250, "256"},
      {"|" + x250, kTextoEscrito, "\n1234567", "|" + x250, "256"},
      {"a[b]c", kPegar, "\n" + x250 + "1234567\n", "a[b|]c", "256"}, // a new row too long
      {"a[b]c", kTextoEscrito, "\n" + x250 + "1234567\n", "a[b|]c", "256"},
      // A row loaded longer than the limit does not lend it to new rows.
      {x150 + "|" + x150, kPegar, "\n" + Fila(257, 'y') + "\n", x150 + "|" + x150, "256"},
      {x150 + "|" + x150, kTextoEscrito, "\n" + Fila(257, 'y') + "\n", x150 + "|" + x150, "256"},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(testing::Message() << c.orden << " " << testing::PrintToString(c.texto) << " in "
                                    << c.antes.substr(0, 12));
    Editor ed = Con(c.antes);
    ed.ModoInsertar(c.orden != kSobrescribir);
    const Resultado r = c.orden == kTab            ? ed.InsertaTab()
                        : c.orden == kTextoEscrito ? ed.EscribeTexto(c.texto)
                        : c.orden <= kEscribir     ? Escribe(ed, c.texto)
                                                   : ed.EditaCmd(c.orden, c.texto);
    const bool cambia = c.despues != Dibujo(Con(c.antes));
    EXPECT_EQ(r.hecho, cambia);
    EXPECT_EQ(r.aviso.empty(), c.aviso.empty()) << r.aviso;
    EXPECT_NE(r.aviso.find(c.aviso), std::string::npos) << r.aviso;
    EXPECT_EQ(Dibujo(ed), c.despues);
    EXPECT_EQ(ed.Modificado(), cambia);
    EXPECT_EQ(ed.Hist().PosHistorial(), cambia ? 0 : -1);
  }
  Editor ed = Con("abcde|");
  ed.EspTab(3);
  ed.InsertaTab();
  EXPECT_EQ(Dibujo(ed), "abcde |");
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
    const std::string despues = Texto(ed), palabra = c.palabra;
    EXPECT_NE(despues, antes);
    EXPECT_EQ(ed.Hist().PosHistorial(), 0); // one record, however many keys
    EXPECT_EQ(Historia(ed), despues + " | Deshacer " + palabra + " | No se puede rehacer");
    ed.Modificado(false); // as saving does: undo and redo change the text again
    ed.Deshacer();
    EXPECT_TRUE(ed.Modificado());
    EXPECT_EQ(Historia(ed), antes + " | No se puede deshacer | Rehacer " + palabra);
    ed.Modificado(false);
    ed.Rehacer();
    EXPECT_TRUE(ed.Modificado());
    EXPECT_EQ(Historia(ed), despues + " | Deshacer " + palabra + " | No se puede rehacer");
  }
}

TEST(Editor, OnlyTheLast32ChangesUndo) {
  Editor ed = Con("|");
  for (int i = 0; i < 40; ++i) {
    ed.MueveCursorCmd(kInicio, false); // typing elsewhere starts a new record
    Escribe(ed, std::string(1, static_cast<char>('A' + i % 26)));
  }
  const std::string todo = Texto(ed);
  EXPECT_EQ(ed.Hist().UltHistorial(), 31);
  for (int i = 0; i < 33; ++i)
    ed.Deshacer();
  EXPECT_EQ(Texto(ed), todo.substr(32)); // the first 8 letters stay
  EXPECT_EQ(ed.Hist().TextoDeshacer(), "No se puede deshacer");
  for (int i = 0; i < 33; ++i)
    ed.Rehacer();
  EXPECT_EQ(Texto(ed), todo);
}

TEST(Editor, ANewChangeDiscardsRedo) {
  Editor ed = Con("|");
  Escribe(ed, "a");
  ed.EditaCmd(kSaltoLinea);
  Escribe(ed, "b");
  ed.Deshacer();
  ed.Deshacer();
  Escribe(ed, "c"); // where "a" ended: it continues that record
  EXPECT_EQ(Historia(ed), "ac | Deshacer escribir | No se puede rehacer");
  EXPECT_EQ(ed.Hist().UltHistorial(), 0);
  ed.Deshacer();
  EXPECT_EQ(Texto(ed), "");
}

TEST(Editor, NewDocumentForgetsTheOld) {
  Editor ed = Con("ab|");
  Escribe(ed, "c");
  ed.Nuevo();
  EXPECT_EQ(Dibujo(ed), "|");
  EXPECT_FALSE(ed.Modificado());
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
  // Recolouring after edits is checked against this pass by the random
  // session; new colours retint the whole document.
  Editor ed = Con("y = sin(x) 'c");
  ed.Colores(1, 2, 3);
  EXPECT_EQ(ColoresFila(ed, 0), "1.1.222111.33");
}

TEST(Editor, ReplacingKeepsTheSelectionInsideTheRow) {
  Editor ed = Con("ab [xyz]");
  EXPECT_TRUE(ed.ReemplazaEnFila(0, 3, 3, "q", kReemplazar, false).hecho);
  EXPECT_EQ(Texto(ed), "ab q");
  const Documento& d = ed.Doc();
  EXPECT_TRUE(d.Cursor().col <= 4 && (!d.HaySel() || (d.Sel1().col <= 4 && d.Sel2().col <= 4)));
  EXPECT_FALSE(ed.ReemplazaEnFila(0, 0, 1, "a\nb", kReemplazar, false).hecho);
  EXPECT_EQ(Texto(ed), "ab q");
}

TEST(Editor, ViewIsToldWhichRowsToDraw) {
  Editor ed = Con("0\n1\n2\n3\n4\n5|\n6");
  const auto cambios = [&ed] {
    const auto c = ed.TomaCambios();
    return std::to_string(c.desde) + ".." + std::to_string(c.hasta);
  };
  cambios();
  Escribe(ed, "x");
  EXPECT_EQ(cambios(), "5..5");
  EXPECT_EQ(cambios(), "-1..-1");
  ed.EditaCmd(kSaltoLinea); // the rows below move down
  EXPECT_EQ(cambios(), "5..-1");
  // Rows that lose the selection's highlight or the cursor are drawn again.
  using Accion = std::function<void(Editor&)>;
  const Accion deshace = [](Editor& e) { e.Deshacer(); };
  const Accion derecha = [](Editor& e) { e.MueveCursorCmd(kDerecha, false); };
  // clang-format off
  const struct { Posicion ancla, cursor; Accion accion; int fila; } casos[] = {
      {{2, 0}, {2, 1}, deshace, 2}, {{3, 1}, {3, 1}, deshace, 3}, {{0, 0}, {3, 1}, derecha, 0},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.fila);
    Prepara(ed, "|0\n1\n2\n3");
    Escribe(ed, "x"); // a change to undo, on row 0
    ed.Doc().MueveCursor(c.cursor.fila, c.cursor.col);
    ed.Doc().FijaSeleccion(c.ancla, c.cursor);
    cambios();
    c.accion(ed);
    const auto d = ed.TomaCambios();
    EXPECT_LE(d.desde, c.fila);
    EXPECT_TRUE(d.hasta < 0 || d.hasta >= c.fila) << d.hasta;
  }
}

} // namespace
