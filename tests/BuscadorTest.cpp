// Find and replace on a document without a window. The cases are the lines
// of tests/casos/busqueda.txt, whose head tells the small language of the
// searches and replacements and what each one reports.

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "Casos.h"
#include "DibujoPrueba.h"
#include "editor/Buscador.h"
#include "lang/Caracteres.h"

namespace {

class Busqueda : public prueba::TablaDeCasos {
protected:
  void SetUp() override {
    bus.FijaAviso([this](const std::string& a) { avisos += " «" + a + "»"; });
    bus.FijaPregunta([this](const std::string& p) {
      EXPECT_EQ(p, Buscador::kPregunta);
      ++preguntas;
      const auto r = preguntas <= respuestas.size() ? respuestas[preguntas - 1] : 'C';
      return r == 'S' ? Respuesta::Si : r == 'N' ? Respuesta::No : Respuesta::Cancelar;
    });
  }
  // What one action gives back, its messages after it.
  std::string Haz(const std::string& accion) {
    std::istringstream s(accion);
    std::string orden, texto, reemp, opcion, r;
    s >> orden;
    if (orden == "busca" || orden == "reemplaza" || orden == "escribe") s >> texto;
    if (orden == "reemplaza") s >> reemp;
    int modo = 0, numeros = 0;
    bool palabra = false, todos = false;
    while (s >> opcion) {
      if (opcion.find_first_not_of("-0123456789") == std::string::npos)
        (numeros++ == 0 ? fila : col) = std::stoi(opcion);
      palabra |= opcion == "palabra";
      todos |= opcion == "todos";
      if (opcion.rfind("modo=", 0) == 0) modo = std::stoi(opcion.substr(5));
      if (opcion.rfind("respuestas=", 0) == 0) respuestas = opcion.substr(11);
    }
    texto = texto == "\"\"" ? "" : texto, reemp = reemp == "\"\"" ? "" : reemp;
    avisos.clear(), preguntas = 0;
    const auto lugar = [&] { return std::to_string(fila) + "," + std::to_string(col); };
    if (orden == "busca") {
      r = bus.Search(texto, fila, col, palabra, modo) ? lugar() : std::to_string(fila);
    } else if (orden == "siguiente") {
      r = bus.BuscarSiguiente() ? "sí" : "no";
    } else if (orden == "reemplaza") {
      const auto m = todos ? ModoReemplazo::Todos : ModoReemplazo::UnoAUno;
      const int hechos = bus.Reemp(texto, reemp, fila, col, palabra, modo, m);
      r = std::to_string(hechos) + " hechos " + std::to_string(preguntas) + " preguntas " +
          (fila < 0 ? "-1" : lugar());
    } else {
      if (orden == "pulsa") ed.Pulsa(fila, col, false);
      if (orden == "escribe") ed.EditaCmd(kEscribir, texto);
      if (orden == "deshace") ed.Deshacer();
      if (orden == "rehace") ed.Rehacer();
      r = ed.Hist().TextoDeshacer() + " / " + ed.Hist().TextoRehacer();
    }
    return r + avisos;
  }

  Editor ed;
  Buscador bus{ed};
  std::string avisos, respuestas;
  std::size_t preguntas = 0;
  int fila = 0, col = 0; // where a search without a place goes on
};

TEST_P(Busqueda, Casos) {
  const prueba::Caso& c = GetParam();
  if (c[0] == "palabra") {
    EXPECT_EQ(EsPalabra(Utf8ACp1252(c[1])), c[2] == "sí");
  } else if (c[0] == "cadena") {
    const int modo = c[4].find("ignora") != std::string::npos;
    const bool palabra = c[4].find("palabra") != std::string::npos;
    EXPECT_EQ(BuscaEnCadena(Utf8ACp1252(c[1]), Utf8ACp1252(c[2]), std::stoi(c[3]), palabra, modo),
              std::stoi(c[5]));
  } else if (c[0] == "documento") {
    prueba::Prepara(ed, c[1]);
    for (std::size_t i = 2; i + 2 < c.size(); i += 3) {
      SCOPED_TRACE(c[i]);
      EXPECT_EQ(Haz(c[i]), c[i + 1]);
      EXPECT_EQ(prueba::Dibujo(ed), prueba::Expande(c[i + 2]));
    }
  } else {
    FAIL() << "clase de caso desconocida: " << c[0];
  }
}

INSTANTIATE_TEST_SUITE_P(Casos, Busqueda, prueba::Casos("busqueda.txt"), prueba::NombreDeCaso);

} // namespace
