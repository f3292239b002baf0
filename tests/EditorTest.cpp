// The editing commands on a window-free editor. The cases are the lines of
// tests/casos/edicion.txt, whose head tells the picture of a document and the
// small command language; what cannot be said in one line stays here.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <regex>
#include <string>
#include <vector>

#include "Casos.h"
#include "DibujoPrueba.h"
#include "editor/Editor.h"

namespace {

using prueba::Dibujo;
using prueba::Expande;
using prueba::Prepara;

std::string Texto(const Editor& ed) { return ed.Doc().TextoDocumento(); }
// The undo record in force, both captions and whether the text is modified.
std::string Estado(const Editor& ed) {
  return std::to_string(ed.Hist().PosHistorial()) + " " + ed.Hist().TextoDeshacer() + " / " +
         ed.Hist().TextoRehacer() + (ed.Modificado() ? " *" : "");
}

// The number after `comas` commas of an argument, and the text after them.
std::string Tras(const std::string& arg, int comas) {
  std::size_t p = 0;
  while (comas-- > 0)
    p = arg.find(',', p) + 1;
  return arg.substr(p);
}
int N(const std::string& arg, int comas) { return std::stoi(Tras(arg, comas)); }

using R = std::optional<Resultado>; // empty for commands that do not edit
R Reemplaza(Editor& e, const std::string& a, int tipo, bool sigue) {
  return e.ReemplazaEnFila(N(a, 0), N(a, 1), N(a, 2), Tras(a, 3), tipo, sigue);
}
const std::map<std::string, std::function<R(Editor&, const std::string&)>> kOrdenes{
    {"Tab", [](Editor& e, auto&) -> R { return e.InsertaTab(); }},
    {"Texto", [](Editor& e, auto& a) -> R { return e.EscribeTexto(a); }},
    {"Reemplaza", [](Editor& e, auto& a) -> R { return Reemplaza(e, a, kReemplazar, false); }},
    {"ReemplazaTodo",
     [](Editor& e, auto& a) -> R { return Reemplaza(e, a, kReemplazarTodo, false); }},
    {"ReemplazaSigue",
     [](Editor& e, auto& a) -> R { return Reemplaza(e, a, kReemplazarTodo, true); }},
    {"Pulsa", [](Editor& e, auto& a) -> R { return e.Pulsa(N(a, 0), N(a, 1), false), R{}; }},
    {"May-Pulsa", [](Editor& e, auto& a) -> R { return e.Pulsa(N(a, 0), N(a, 1), true), R{}; }},
    {"Arrastra", [](Editor& e, auto& a) -> R { return e.Arrastra(N(a, 0), N(a, 1)), R{}; }},
    {"Palabra", [](Editor& e, auto&) -> R { return e.SeleccionaPalabra(), R{}; }},
    {"Deshace", [](Editor& e, auto&) -> R { return e.Deshacer(), R{}; }},
    {"Rehace", [](Editor& e, auto&) -> R { return e.Rehacer(), R{}; }},
    {"Guarda", [](Editor& e, auto&) -> R { return e.Modificado(false), R{}; }},
    {"Nuevo", [](Editor& e, auto&) -> R { return e.Nuevo(), R{}; }},
    {"EspTab", [](Editor& e, auto& a) -> R { return e.EspTab(N(a, 0)), R{}; }},
    {"Colores", [](Editor& e, auto& a) -> R { return e.Colores(N(a, 0), N(a, 1), N(a, 2)), R{}; }},
};
const std::map<std::string, int> kTeclas{{"Borra", kEliminarSel},
                                         {"Retroceso", kRetroceso},
                                         {"Suprime", kSuprimir},
                                         {"Corta", kCortar},
                                         {"Pega", kPegar},
                                         {"Intro", kSaltoLinea},
                                         {"RetrocesoPalabra", kRetrocesoPalabra},
                                         {"SuprimePalabra", kSuprimirPalabra}};
// In the order of the movement codes.
const std::string kMovimientos[] = {"Derecha",   "Izquierda", "Arriba",     "Abajo",
                                    "Inicio",    "Fin",       "AvPag",      "RePag",
                                    "InicioDoc", "FinDoc",    "PalabraIzq", "PalabraDer"};

// Runs the commands of a field: a name, perhaps with an argument in
// parentheses that ends at a ")" before a blank or the field's end. Each
// command that edits must report done exactly when it changed the picture
// (typing, for each character); the messages it gave are gathered.
void Ejecuta(Editor& ed, const std::string& ordenes, std::string& avisos) {
  static const std::regex orden(R"(([A-Za-z-]+)(?:\(([\s\S]*?)\))?(?: +|$))");
  const std::string s = ordenes == "-" ? "" : Expande(ordenes);
  for (std::sregex_iterator m(s.begin(), s.end(), orden), fin; m != fin; ++m) {
    const std::string nombre = (*m)[1], arg = (*m)[2];
    SCOPED_TRACE(nombre + "(" + arg + ")");
    const bool mayus = nombre.rfind("May-", 0) == 0;
    const auto mov = std::find(std::begin(kMovimientos), std::end(kMovimientos),
                               mayus ? nombre.substr(4) : nombre);
    std::vector<std::string> teclas{arg};
    if (nombre == "Escribe" || nombre == "Sobrescribe") {
      ed.ModoInsertar(nombre == "Escribe");
      teclas.clear();
      for (std::size_t a = 0, n = 1; a < arg.size(); a += n, n = 1) {
        while (a + n < arg.size() && (static_cast<unsigned char>(arg[a + n]) & 0xC0) == 0x80)
          ++n;
        teclas.push_back(arg.substr(a, n));
      }
    }
    for (const std::string& tecla : teclas) {
      const std::string antes = Dibujo(ed);
      R r;
      if (mov != std::end(kMovimientos))
        ed.MueveCursorCmd(static_cast<int>(mov - std::begin(kMovimientos)), mayus, 4);
      else if (nombre.find("scribe") != std::string::npos)
        r = ed.EditaCmd(kEscribir, tecla);
      else if (kTeclas.count(nombre))
        r = ed.EditaCmd(kTeclas.at(nombre), tecla);
      else if (kOrdenes.count(nombre))
        r = kOrdenes.at(nombre)(ed, tecla);
      else
        ADD_FAILURE() << "orden desconocida";
      if (!r) continue;
      EXPECT_EQ(r->hecho, Dibujo(ed) != antes) << tecla;
      avisos += r->aviso;
    }
  }
}

class Edicion : public prueba::TablaDeCasos {};

TEST_P(Edicion, Casos) {
  const prueba::Caso& c = GetParam();
  Editor ed;
  std::string avisos;
  if (c[0] == "edita") {
    Prepara(ed, c[1]);
    const std::string antes = Texto(ed);
    Ejecuta(ed, c[2], avisos);
    EXPECT_EQ(Dibujo(ed), Expande(c[3]));
    const std::string despues = Texto(ed);
    const std::string palabra = c.size() > 4 && c[4] != "(vacía)" ? c[4] : "";
    if (c.size() < 5 || palabra == "-") {
      EXPECT_EQ(Estado(ed), "-1 No se puede deshacer / No se puede rehacer");
    } else {
      // One record, however many keys; undone and redone, it changes the
      // text again even after a save.
      EXPECT_EQ(Estado(ed), "0 Deshacer " + palabra + " / No se puede rehacer *");
      ed.Modificado(false);
      ed.Deshacer();
      EXPECT_EQ(Texto(ed), antes);
      EXPECT_EQ(Estado(ed), "-1 No se puede deshacer / Rehacer " + palabra + " *");
      ed.Modificado(false);
      ed.Rehacer();
      EXPECT_EQ(Texto(ed), despues);
      EXPECT_EQ(Estado(ed), "0 Deshacer " + palabra + " / No se puede rehacer *");
    }
    const std::string aviso = c.size() > 5 ? c[5] : "";
    EXPECT_EQ(avisos.empty(), aviso.empty()) << avisos;
    EXPECT_NE(avisos.find(aviso), std::string::npos) << avisos;
  } else if (c[0] == "modificado") {
    Prepara(ed, c[1]);
    Ejecuta(ed, c[2], avisos);
    EXPECT_EQ(ed.Modificado() ? "sí" : "no", c[3]);
  } else if (c[0] == "colores") {
    // One hexadecimal digit per cell: its colour index; "." for a blank,
    // whose colour never shows.
    ed.Colores(7, 12, 10);
    Prepara(ed, c[1]);
    Ejecuta(ed, c.size() > 3 ? c[3] : "-", avisos);
    std::string colores;
    for (const Celda celda : ed.Doc().Fila(0))
      colores += (celda & 0xFF) == ' ' ? '.' : "0123456789abcdef"[celda >> 8];
    EXPECT_EQ(colores, c[2]);
  } else if (c[0] == "dibuja") {
    Prepara(ed, c[1]);
    Ejecuta(ed, c[2], avisos);
    ed.TomaCambios();
    Ejecuta(ed, c[3], avisos);
    const auto d = ed.TomaCambios();
    EXPECT_EQ(std::to_string(d.desde) + ".." + std::to_string(d.hasta), c[4]);
  } else {
    FAIL() << "clase de caso desconocida: " << c[0];
  }
}

INSTANTIATE_TEST_SUITE_P(Casos, Edicion, prueba::Casos("edicion.txt"), prueba::NombreDeCaso);

TEST(Editor, OnlyTheLast32ChangesUndo) {
  Editor ed;
  for (int i = 0; i < 40; ++i) {
    ed.MueveCursorCmd(kInicio, false); // typing elsewhere starts a new record
    ed.EditaCmd(kEscribir, std::string(1, static_cast<char>('A' + i % 26)));
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

// A save is reachable by undoing while its record is kept: after 32 more
// records it is the state before the oldest one; one record more drops it.
TEST(Editor, UnGuardadoSeAlcanzaMientrasQuedaSuRegistro) {
  for (const int mas : {Historial::kMaxRegistros, Historial::kMaxRegistros + 1}) {
    Editor ed;
    ed.EditaCmd(kEscribir, "a");
    ed.Modificado(false);
    for (int i = 0; i < mas; ++i) {
      ed.MueveCursorCmd(kInicio, false); // typing elsewhere starts a new record
      ed.EditaCmd(kEscribir, "b");
    }
    while (ed.Hist().PuedeDeshacer())
      ed.Deshacer();
    EXPECT_EQ(Texto(ed), mas == Historial::kMaxRegistros ? "a" : "ba");
    EXPECT_EQ(ed.Modificado(), mas > Historial::kMaxRegistros) << mas;
  }
}

} // namespace
