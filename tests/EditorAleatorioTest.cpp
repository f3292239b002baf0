// A long random editing session checked step by step against a reference
// that sees the document as one string with "\r\n" between rows: every
// change replaces one span of it, and must be refused whole when a row would
// pass 256 cells. Undo and redo must walk back and forth through exactly the
// texts the session went through, and the colours must be those a fresh
// load of the same rows would give.

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "editor/Editor.h"
#include "lang/Cp1252.h"

namespace {

std::string Bytes(const Editor& ed) {
  const Documento& d = ed.Doc();
  return d.Bytes({0, 0}, {d.NumFilas() - 1, d.LongFila(d.NumFilas() - 1)});
}

int Desplazamiento(const Documento& d, Posicion p) {
  int n = p.col;
  for (int f = 0; f < p.fila; ++f)
    n += d.LongFila(f) + 2;
  return n;
}

bool FilasCaben(const std::string& texto) {
  for (std::size_t ini = 0;;) {
    const std::size_t fin = texto.find("\r\n", ini);
    if ((fin == std::string::npos ? texto.size() : fin) - ini > 256) return false;
    if (fin == std::string::npos) return true;
    ini = fin + 2;
  }
}

// Any line break of pasted text becomes the document's "\r\n".
std::string ConSaltos(const std::string& bytes) {
  std::string out;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') continue;
    out += bytes[i] == '\r' || bytes[i] == '\n' ? std::string("\r\n") : std::string(1, bytes[i]);
  }
  return out;
}

bool EnSuFila(const Documento& d, Posicion p) {
  return p.fila >= 0 && p.fila < d.NumFilas() && p.col >= 0 && p.col <= d.LongFila(p.fila);
}

void CompruebaInvariantes(const Editor& ed, Editor& fresco) {
  const Documento& d = ed.Doc();
  ASSERT_GE(d.NumFilas(), 1);
  ASSERT_TRUE(EnSuFila(d, d.Cursor()));
  if (d.HaySel()) {
    ASSERT_TRUE(EnSuFila(d, d.Sel1()));
    ASSERT_TRUE(EnSuFila(d, d.Sel2()));
    ASSERT_FALSE(d.Sel1() == d.Sel2());
  }
  std::vector<std::string> filas;
  for (int f = 0; f < d.NumFilas(); ++f) {
    ASSERT_LE(d.LongFila(f), 256) << f;
    filas.push_back(d.BytesFila(f));
  }
  const Historial& h = ed.Hist();
  ASSERT_LE(-1, h.PosHistorial());
  ASSERT_LE(h.PosHistorial(), h.UltHistorial());
  ASSERT_LT(h.UltHistorial(), 32);
  ASSERT_EQ(h.PuedeDeshacer(), h.TextoDeshacer() != "No se puede deshacer");
  ASSERT_EQ(h.PuedeRehacer(), h.TextoRehacer() != "No se puede rehacer");
  // Recolouring after each change leaves what colouring from scratch gives
  // (blanks belong to no token and never show their colour).
  fresco.Carga(filas);
  for (int f = 0; f < d.NumFilas(); ++f)
    for (int c = 0; c < d.LongFila(f); ++c)
      if ((d.Fila(f)[c] & 0xFF) != ' ') {
        ASSERT_EQ(d.Fila(f)[c], fresco.Doc().Fila(f)[c]) << f;
      }
}

// Undoes every record; the texts passed through, the newest first.
std::vector<std::string> DeshazTodo(Editor& ed) {
  std::vector<std::string> textos;
  while (ed.Hist().PuedeDeshacer()) {
    ed.Deshacer();
    textos.push_back(Bytes(ed));
  }
  return textos;
}

// vistos[n - 1], ..., vistos[0].
std::vector<std::string> Previos(const std::vector<std::string>& vistos, int n) {
  return {vistos.rend() - n, vistos.rend()};
}

// `vistos[i]` is the text with i records in force: undoing everything and
// redoing everything must pass through them all.
void RecorreHistorial(Editor copia, const std::vector<std::string>& vistos) {
  ASSERT_EQ(vistos.size(), static_cast<std::size_t>(copia.Hist().UltHistorial() + 2));
  ASSERT_EQ(DeshazTodo(copia), Previos(vistos, copia.Hist().PosHistorial() + 1));
  for (std::size_t k = 1; k < vistos.size(); ++k) {
    copia.Rehacer();
    ASSERT_EQ(Bytes(copia), vistos[k]) << "redone up to " << k;
  }
}

TEST(EditorAleatorio, SessionAgainstAReference) {
  const char* const kTeclas[] = {"a", "x", "2", "+", "(", ")", " ", "'",
                                 "á", "ñ", "Ñ", "€", "·", "_", "s", "n"};
  const std::string kPegados[] = {"sin(x)",      "a\r\nb", "\n", "x\ry\nz\r\rw\n\nv",
                                  "año\r\n\r\n", "'c\r\n"};
  std::mt19937 azar(20240611);
  const auto uno = [&](int n) { return static_cast<int>(azar() % static_cast<unsigned>(n)); };

  Editor ed, fresco;
  ed.Carga({"y = x^2*Sin(x)", "'nota", "", std::string(250, 'b')});
  std::vector<std::string> vistos{Bytes(ed)};
  for (int paso = 0; paso < 3000; ++paso) {
    const Documento& d = ed.Doc();
    const std::string antes = Bytes(ed);
    const int pos0 = ed.Hist().PosHistorial(), ult0 = ed.Hist().UltHistorial();
    const Posicion cur = d.Cursor();
    const bool haySel = d.HaySel();
    const int a = Desplazamiento(d, haySel ? d.InicioSel() : cur);
    const int b = haySel ? Desplazamiento(d, d.FinSel()) : a;
    const std::string seleccion =
        antes.substr(static_cast<std::size_t>(a), static_cast<std::size_t>(b - a));

    // A change replaces [desde, hasta) of the text by `puesto`; posible false
    // when the command has nothing to act on.
    bool cambio = false, posible = true;
    int desde = a, hasta = b;
    std::string puesto, orden;
    Resultado r;
    const int dado = uno(100);
    if (dado < 25) {
      const std::string c = kTeclas[uno(static_cast<int>(std::size(kTeclas)))];
      orden = "escribe " + c, cambio = true, puesto = Utf8ACp1252(c);
      r = ed.EditaCmd(kEscribir, c);
    } else if (dado < 31) {
      orden = "Enter", cambio = true, puesto = "\r\n";
      r = ed.EditaCmd(kSaltoLinea);
    } else if (dado < 46) {
      const bool retroceso = dado < 39;
      orden = retroceso ? "Retroceso" : "Suprimir", cambio = true;
      if (!haySel && retroceso) {
        posible = a > 0;
        desde = a - (cur.col == 0 ? 2 : 1);
      } else if (!haySel) {
        posible = cur.fila + 1 < d.NumFilas() || cur.col < d.LongFila(cur.fila);
        hasta = a + (cur.col == d.LongFila(cur.fila) ? 2 : 1);
      }
      r = ed.EditaCmd(retroceso ? kRetroceso : kSuprimir);
    } else if (dado < 53) {
      // Runs of random length bring rows close to the limit; some fill the
      // cursor's row to one cell short of it, to it, or one cell past.
      const int hueco = std::max(256 - d.LongFila(cur.fila) + uno(3) - 1, 1);
      const int forma = uno(3);
      const std::string t = forma == 0   ? kPegados[uno(static_cast<int>(std::size(kPegados)))]
                            : forma == 1 ? std::string(static_cast<std::size_t>(hueco), 'v')
                                         : std::string(static_cast<std::size_t>(uno(130)), 'w') +
                                               (uno(3) == 0 ? "\n" : "") +
                                               std::string(static_cast<std::size_t>(uno(130)), 'q');
      orden = "pega " + testing::PrintToString(t), cambio = true,
      puesto = ConSaltos(Utf8ACp1252(t));
      r = dado < 51 ? ed.EditaCmd(kPegar, t) : ed.EscribeTexto(t);
    } else if (dado < 58) {
      const bool corta = dado < 56;
      orden = corta ? "Cortar" : "Eliminar", cambio = true, posible = haySel;
      r = ed.EditaCmd(corta ? kCortar : kEliminarSel);
      if (corta && r.hecho) {
        ASSERT_EQ(ed.CortadoCopiado(), Cp1252AUtf8(seleccion));
      }
    } else if (dado < 60) {
      const int col = haySel ? d.InicioSel().col : cur.col;
      orden = "Tab", cambio = true,
      puesto = std::string(static_cast<std::size_t>(4 - col % 4), ' ');
      r = ed.InsertaTab();
    } else if (dado < 78) {
      const int codigo = uno(8);
      const bool mayus = uno(2) == 0;
      orden = "mueve " + std::to_string(codigo) + (mayus ? " con Mayús" : "");
      ed.MueveCursorCmd(codigo, mayus, 3);
    } else if (dado < 84) {
      const int fila = uno(d.NumFilas() + 2) - 1, col = uno(40) - 2;
      orden = "ratón " + std::to_string(fila) + "," + std::to_string(col);
      if (dado < 80)
        ed.Pulsa(fila, col, dado == 79);
      else if (dado < 83)
        ed.Arrastra(fila, col);
      else
        ed.SeleccionaPalabra();
    } else if (dado < 93) {
      orden = "Deshacer";
      ed.Deshacer();
    } else {
      orden = "Rehacer";
      ed.Rehacer();
    }
    SCOPED_TRACE(testing::Message()
                 << "paso " << paso << ": " << orden << " en " << testing::PrintToString(antes));
    ASSERT_NO_FATAL_FAILURE(CompruebaInvariantes(ed, fresco));
    const int pos = ed.Hist().PosHistorial();
    if (!cambio) {
      if (orden == "Deshacer" || orden == "Rehacer") {
        ASSERT_EQ(pos, orden == "Deshacer" ? std::max(pos0 - 1, -1) : std::min(pos0 + 1, ult0));
        ASSERT_EQ(Bytes(ed), vistos[static_cast<std::size_t>(pos + 1)]);
      } else {
        ASSERT_EQ(Bytes(ed), antes);
        ASSERT_EQ(pos, pos0);
      }
      continue;
    }
    std::string esperado = antes;
    if (posible)
      esperado.replace(static_cast<std::size_t>(desde), static_cast<std::size_t>(hasta - desde),
                       puesto);
    const bool hecho = posible && FilasCaben(esperado);
    ASSERT_EQ(r.hecho, hecho);
    ASSERT_EQ(Bytes(ed), hecho ? esperado : antes);
    if (!hecho) {
      ASSERT_EQ(pos, pos0);
      ASSERT_EQ(ed.Hist().UltHistorial(), ult0);
      continue;
    }
    ASSERT_TRUE(ed.Modificado());
    ASSERT_FALSE(ed.Doc().HaySel());
    ASSERT_EQ(Desplazamiento(ed.Doc(), ed.Doc().Cursor()), desde + static_cast<int>(puesto.size()));
    ASSERT_EQ(ed.Hist().UltHistorial(), pos); // nothing left to redo
    if (pos == pos0) {
      // The change continued the record in force or, with every record in
      // use, the oldest gave way to a new one; when one undo cannot tell (a
      // character typed over the same one selected), undoing everything does.
      Editor copia = ed;
      copia.Deshacer();
      const std::string previo = Bytes(copia);
      if (pos == 31 && previo == antes &&
          (previo != vistos[31] || DeshazTodo(copia = ed) != Previos(vistos, 32))) {
        vistos.erase(vistos.begin());
      } else {
        ASSERT_EQ(previo, vistos[static_cast<std::size_t>(pos)]);
      }
    } else {
      ASSERT_EQ(pos, pos0 + 1);
    }
    vistos.resize(static_cast<std::size_t>(pos + 1));
    vistos.push_back(Bytes(ed));
    if (paso % 32 == 0) {
      ASSERT_NO_FATAL_FAILURE(RecorreHistorial(ed, vistos));
    }
  }
  RecorreHistorial(ed, vistos);
}

} // namespace
