// The presentation settings without a window: loading, the setters, the
// store that fails, and what the dialog decides. The cases are the lines of
// tests/casos/presentacion.txt, whose head tells the small command language.

#include "editor/Presentacion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "Casos.h"
#include "editor/DialogoPresentar.h"
#include "editor/Paleta.h"

namespace {

using E = EfectoPresentacion;

// Logs every read (with the default handed over) and every write, in order;
// fails with the reason it is given.
class AlmacenRegistrado : public AlmacenEnMemoria {
public:
  std::string Lee(const std::string& s, const std::string& c, const std::string& d) override {
    registro.push_back("Lee " + c + " (" + d + ")");
    return AlmacenEnMemoria::Lee(s, c, d);
  }
  void Escribe(const std::string& s, const std::string& c, const std::string& v) override {
    registro.push_back("Escribe " + c + "=" + v);
    AlmacenEnMemoria::Escribe(s, c, v);
  }
  std::string Fallo() const override { return fallo; }
  std::vector<std::string> registro;
  std::string fallo;
};

std::string Une(const std::vector<std::string>& v, const char* sep) {
  std::string out;
  for (const std::string& s : v)
    out += (out.empty() ? "" : sep) + s;
  return out.empty() ? "-" : out;
}

// The nine settings in load order, scroll bars as 0 or 1.
std::string Ajustes(const AjustesPresentacion& a) {
  std::ostringstream s;
  s << a.EspTab << ' ' << a.TamFuente << ' ' << a.ColorLetra << ' ' << a.ColorLetraSel << ' '
    << a.ColorFondoSel << ' ' << a.ColorPC << ' ' << a.ColorComment << ' ' << a.ColorFondoEditor
    << ' ' << a.ScrollBars;
  return s.str();
}

// The dialog's values from "tab box;font;text;selected text;selection
// background;keyword;comment;background;scroll bars;tab".
ValoresPresentar Dialogo(const std::string& arg) {
  ValoresPresentar v;
  v.txtTab = arg.substr(0, arg.find(';'));
  std::string resto = arg.substr(arg.find(';') + 1);
  std::replace(resto.begin(), resto.end(), ';', ' ');
  std::istringstream(resto) >> v.TamFuente >> v.ColorLetra >> v.ColorLetraSel >> v.ColorFondoSel >>
      v.ColorPC >> v.ColorComment >> v.ColorFondoEditor >> v.ScrollBars >> v.EspTab;
  return v;
}

const std::map<std::string, bool (Presentacion::*)(int)> kEnteros{
    {"EspTab", &Presentacion::SetEspTab},
    {"ColorLetra", &Presentacion::SetColorLetra},
    {"ColorPC", &Presentacion::SetColorPC},
    {"ColorLetraSel", &Presentacion::SetColorLetraSel},
    {"ColorFondoSel", &Presentacion::SetColorFondoSel},
    {"ColorComment", &Presentacion::SetColorComment},
    {"ColorFondoEditor", &Presentacion::SetColorFondoEditor},
};
const char* const kEfectos[] = {"Fuente", "ColorTexto",           "Redibujo",
                                "Fondo",  "BarrasDesplazamiento", "SoloGuardado"};

class Presenta : public prueba::TablaDeCasos {};

TEST_P(Presenta, Casos) {
  const prueba::Caso& c = GetParam();
  if (c[0] == "casilla") {
    const auto msj = CompruebaTab(c[1] == "\"\"" ? "" : c[1]);
    EXPECT_EQ(msj.value_or("bien"), c[2] == "bien" ? "bien" : kMsjEspTab);
    return;
  }
  if (c[0] == "paleta") {
    std::ostringstream rgb;
    rgb << std::hex << ColorPaleta(std::stoi(c[1]));
    EXPECT_EQ(rgb.str(), c[2]);
    return;
  }
  ASSERT_EQ(c[0], "presenta");
  AlmacenRegistrado almacen;
  std::istringstream previo(c[1] == "-" ? "" : c[1]);
  for (std::string par; std::getline(previo, par, ';');)
    almacen.AlmacenEnMemoria::Escribe("Editor", par.substr(0, par.find('=')),
                                      par.substr(par.find('=') + 1));
  std::vector<std::string> devuelto, mensajes, efectos;
  std::unique_ptr<Presentacion> p;
  const auto nueva = [&] {
    p = std::make_unique<Presentacion>(almacen);
    p->AlMensaje = [&](const std::string& m) { mensajes.push_back(m); };
    p->AlAplicar = [&](E e) { efectos.push_back(kEfectos[static_cast<int>(e)]); };
  };
  nueva();
  static const std::regex orden(R"(([A-Za-z]+)(?:\(([^)]*)\))?(?: +|$))");
  for (std::sregex_iterator m(c[2].begin(), c[2].end(), orden), fin; m != fin; ++m) {
    const std::string nombre = (*m)[1], arg = (*m)[2];
    const auto si = [&](bool hecho) { devuelto.push_back(hecho ? "sí" : "no"); };
    if (kEnteros.count(nombre))
      si(((*p).*kEnteros.at(nombre))(std::stoi(arg)));
    else if (nombre == "TamFuente")
      si(p->SetTamFuente(std::stof(arg)));
    else if (nombre == "ScrollBars")
      si(p->SetScrollBars(arg == "1"));
    else if (nombre == "Carga")
      p->Carga();
    else if (nombre == "Reinicia")
      nueva(), p->Carga();
    else if (nombre == "Falla")
      almacen.fallo = arg;
    else if (nombre == "Sordo")
      p->AlMensaje = nullptr;
    else if (nombre == "Acepta")
      devuelto.push_back(AceptaPresentar(*p, Dialogo(arg)).value_or("bien"));
    else if (nombre == "Abre")
      devuelto.push_back("[" + AbrePresentar(*p).txtTab + " " + Ajustes(AbrePresentar(*p)) + "]");
    else
      ADD_FAILURE() << "orden desconocida: " << nombre;
  }
  const std::string obtenido[] = {Une(devuelto, " "), Une(almacen.registro, "; "),
                                  Une(efectos, " "), Une(mensajes, "; "), Ajustes(p->Ajustes())};
  for (std::size_t i = 0; i < std::size(obtenido); ++i)
    EXPECT_TRUE(c.size() <= i + 3 || c[i + 3] == "*" || obtenido[i] == c[i + 3])
        << "campo " << i + 4 << ": " << obtenido[i];
  // Keys of the store and the text each must hold afterwards.
  std::istringstream despues(c.size() > 8 ? c[8] : "");
  for (std::string par; std::getline(despues, par, ';');)
    EXPECT_EQ(almacen.Valores().at({"Editor", par.substr(0, par.find('='))}),
              par.substr(par.find('=') + 1));
}

INSTANTIATE_TEST_SUITE_P(Casos, Presenta, prueba::Casos("presentacion.txt"), prueba::NombreDeCaso);

} // namespace
