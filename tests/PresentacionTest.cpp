#include "editor/Presentacion.h"

#include "editor/DialogoPresentar.h"
#include "editor/Paleta.h"
#include "editor/ValoresSeguros.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <vector>

namespace {

using E = EfectoPresentacion;
using Textos = std::vector<std::string>;

// Logs every read (with the default handed over) and every write, in order.
class AlmacenRegistrado : public AlmacenEnMemoria {
public:
  std::string Lee(const std::string& s, const std::string& c, const std::string& d) override {
    registro.push_back("L " + s + "/" + c + " (" + d + ")");
    return AlmacenEnMemoria::Lee(s, c, d);
  }
  void Escribe(const std::string& s, const std::string& c, const std::string& v) override {
    registro.push_back("E " + s + "/" + c + "=" + v);
    escrituras.push_back(s + "/" + c + "=" + v);
    AlmacenEnMemoria::Escribe(s, c, v);
  }
  Textos registro, escrituras;
};

// The nine settings in load order, scroll bars as 0 or 1.
std::string Ajustes(const Presentacion& p) {
  std::ostringstream s;
  s << p.GetEspTab() << ' ' << p.GetTamFuente() << ' ' << p.GetColorLetra() << ' '
    << p.GetColorLetraSel() << ' ' << p.GetColorFondoSel() << ' ' << p.GetColorPC() << ' '
    << p.GetColorComment() << ' ' << p.GetColorFondoEditor() << ' ' << p.GetScrollBars();
  return s.str();
}

class PresentacionTest : public ::testing::Test {
protected:
  PresentacionTest() {
    p.AlMensaje = [this](const std::string& m) { mensajes.push_back(m); };
    p.AlAplicar = [this](E e) { efectos.push_back(e); };
  }
  void Olvida() {
    almacen.registro.clear(), almacen.escrituras.clear(), mensajes.clear(), efectos.clear();
  }
  bool NadaOcurrio() const { return almacen.registro.empty() && efectos.empty(); }
  std::string Leido(const std::string& clave) { return almacen.Valores().at({"Editor", clave}); }

  AlmacenRegistrado almacen;
  Presentacion p{almacen};
  Textos mensajes;
  std::vector<E> efectos;
};

TEST_F(PresentacionTest, PrimerArranqueLeeEnOrdenYEscribeLosDefectos) {
  p.Carga();
  EXPECT_EQ(
      almacen.registro,
      (Textos{"L Editor/EspTab (4)", "E Editor/Tab=4", "L Editor/TamFuente (10)",
              "E Editor/TamFuente=10", "L Editor/ColorLetra (0)", "E Editor/ColorLetra=0",
              "L Editor/ColorLetraSel (15)", "E Editor/ColorLetraSel=15",
              "L Editor/ColorFondoSel (1)", "E Editor/ColorFondoSel=1", "L Editor/ColorPC (1)",
              "E Editor/ColorPC=1", "L Editor/ColorComment (2)", "E Editor/ColorComment=2",
              "L Editor/ColorFondoEditor (15)", "E Editor/ColorFondoEditor=15",
              "L Editor/ScrollBars (-1)", "E Editor/ScrollBars=-1"}));
  EXPECT_EQ(efectos, (std::vector<E>{E::Fuente, E::ColorTexto, E::Fondo, E::BarrasDesplazamiento}));
}

TEST_F(PresentacionTest, SoloSeReescribeLoQueResultaIgualAlDefecto) {
  for (auto [c, v] : {std::pair{"EspTab", "4.9"},
                      {"TamFuente", "12.5"},
                      {"ColorLetra", "99"},
                      {"ColorLetraSel", "-3"},
                      {"ColorFondoSel", "7"},
                      {"ColorPC", "abc"},
                      {"ColorComment", " 5x"},
                      {"ColorFondoEditor", "3"},
                      {"ScrollBars", "1"}})
    almacen.AlmacenEnMemoria::Escribe("Editor", c, v);
  p.Carga();
  EXPECT_EQ(Ajustes(p), "4 12.5 99 -3 7 0 5 3 1"); // no range check on load
  EXPECT_EQ(almacen.escrituras, (Textos{"Editor/Tab=4", "Editor/ScrollBars=-1"}));
  EXPECT_EQ(Leido("EspTab"), "4.9");
  // The dialog's colour lists cannot show 99 or -3: they open on the defaults.
  const ValoresPresentar v = AbrePresentar(p);
  EXPECT_EQ(std::tuple(v.txtTab, v.ColorLetra, v.ColorLetraSel, v.ColorFondoSel),
            std::tuple("4", 0, 15, 7));
}

TEST(PresentacionCarga, LecturaIndulgenteDelTexto) {
  constexpr int kMax = std::numeric_limits<int>::max(), kMin = std::numeric_limits<int>::min();
  const std::tuple<const char*, int, bool> casos[]{
      {"8", 8, true},       {"12.7", 12, true},    {"-3.9", -3, true}, {"0.5", 0, true},
      {"abc", 0, false},    {"", 0, false},        {"7abc", 7, true},  {"1E1", 10, true},
      {"1e30", kMax, true}, {"-1e30", kMin, true}, {"-1", -1, true}};
  for (auto [texto, tab, barras] : casos) {
    AlmacenEnMemoria a;
    a.Escribe("Editor", "EspTab", texto);
    a.Escribe("Editor", "ScrollBars", texto);
    Presentacion q(a);
    q.Carga();
    EXPECT_EQ(std::pair(q.GetEspTab(), q.GetScrollBars()), std::pair(tab, barras)) << texto;
  }
}

TEST_F(PresentacionTest, TabulacionYColorDeLetraCambiadosNoSobrevivenAlReinicio) {
  p.Carga();
  EXPECT_TRUE(p.SetEspTab(8) && p.SetColorLetra(4));
  EXPECT_EQ(std::tuple(Leido("Tab"), Leido("m_ColorLetra"), Leido("ColorLetra")),
            std::tuple("8", "4", "0"));
  Presentacion otra(almacen);
  otra.Carga();
  EXPECT_EQ(std::pair(otra.GetEspTab(), otra.GetColorLetra()), std::pair(4, 0));
  EXPECT_EQ(Leido("Tab"), "4");
}

struct CasoEntero {
  bool (Presentacion::*set)(int);
  int (Presentacion::*get)() const;
  int minimo, maximo;
  const char *mensaje, *clave;
  E efecto;
};

using P = Presentacion;
const std::vector<CasoEntero> kEnteros{
    {&P::SetEspTab, &P::GetEspTab, 1, 32,
     "Los espacios de tabulación deben estar comprendidos entre 1 y 32", "Tab", E::SoloGuardado},
    {&P::SetColorLetra, &P::GetColorLetra, 0, 15,
     "El color de letra debe ser un valor comprendido entre 0 y 15", "m_ColorLetra", E::ColorTexto},
    {&P::SetColorPC, &P::GetColorPC, 0, 15,
     "El color de palabra clave debe ser un valor comprendido entre 0 y 15", "ColorPC",
     E::Redibujo},
    {&P::SetColorLetraSel, &P::GetColorLetraSel, 0, 15,
     "El color de letra seleccionada debe ser un valor comprendido entre 0 y 15", "ColorLetraSel",
     E::Redibujo},
    {&P::SetColorFondoSel, &P::GetColorFondoSel, 0, 15,
     "El color de fondo seleccionado debe ser un valor comprendido entre 0 y 15", "ColorFondoSel",
     E::Redibujo},
    {&P::SetColorComment, &P::GetColorComment, 0, 15,
     "El color de comentario debe ser un valor comprendido entre 0 y 15", "ColorComment",
     E::Redibujo},
    {&P::SetColorFondoEditor, &P::GetColorFondoEditor, 0, 15,
     "El color de fondo debe ser un valor comprendido entre 0 y 15", "ColorFondoEditor", E::Fondo},
};

TEST_F(PresentacionTest, FueraDeRangoAvisaYNoCambiaNada) {
  for (const auto& c : kEnteros) {
    Olvida();
    EXPECT_FALSE((p.*c.set)(c.minimo - 1) || (p.*c.set)(c.maximo + 1));
    EXPECT_EQ(mensajes, (Textos{c.mensaje, c.mensaje}));
    EXPECT_TRUE(NadaOcurrio() && Ajustes(p) == "4 10 0 15 1 1 2 15 1") << c.clave;
  }
  Olvida();
  for (float t : {5.5f, 5.99f, 18.5f, std::nanf("")})
    EXPECT_FALSE(p.SetTamFuente(t)) << t;
  EXPECT_EQ(mensajes, Textos(4, "El tamaño de fuente debe estar comprendido entre 6 y 18"));
  EXPECT_TRUE(NadaOcurrio() && p.GetTamFuente() == 10.0f);
  p.AlMensaje = nullptr; // a window that listens to nothing must not crash
  EXPECT_FALSE(p.SetEspTab(0));
}

TEST_F(PresentacionTest, ValorNuevoSeGuardaYAplicaElIgualNo) {
  for (const auto& c : kEnteros) {
    if (c.set == &P::SetColorPC) continue; // compared otherwise, see below
    Olvida();
    EXPECT_TRUE((p.*c.set)(7) && !(p.*c.set)(7) && (p.*c.set)(c.minimo) && (p.*c.set)(c.maximo))
        << c.clave;
    EXPECT_EQ((p.*c.get)(), c.maximo);
    const std::string k = std::string("Editor/") + c.clave + "=";
    EXPECT_EQ(almacen.escrituras,
              (Textos{k + "7", k + std::to_string(c.minimo), k + std::to_string(c.maximo)}));
    EXPECT_EQ(efectos, std::vector<E>(3, c.efecto));
  }
  Olvida();
  EXPECT_TRUE(p.SetTamFuente(6.5f) && !p.SetTamFuente(6.5f) && p.SetTamFuente(18) &&
              p.SetTamFuente(6));
  EXPECT_EQ(almacen.escrituras,
            (Textos{"Editor/TamFuente=6.5", "Editor/TamFuente=18", "Editor/TamFuente=6"}));
  EXPECT_EQ(efectos, std::vector<E>(3, E::Fuente));
  EXPECT_TRUE(mensajes.empty());
}

TEST_F(PresentacionTest, ColorDePalabraClaveSeComparaConElDeLetra) {
  EXPECT_FALSE(p.SetColorPC(0)); // the text colour, though the keyword colour is 1
  EXPECT_TRUE(NadaOcurrio() && mensajes.empty() && p.GetColorPC() == 1);
  EXPECT_TRUE(p.SetColorPC(1)); // its own value is taken again
  EXPECT_TRUE(p.SetColorLetra(5));
  EXPECT_TRUE(!p.SetColorPC(5) && p.SetColorPC(0));
  EXPECT_EQ(almacen.escrituras,
            (Textos{"Editor/ColorPC=1", "Editor/m_ColorLetra=5", "Editor/ColorPC=0"}));
}

TEST_F(PresentacionTest, BarrasDeDesplazamientoSinValidarNiComparar) {
  EXPECT_TRUE(p.SetScrollBars(true) && p.SetScrollBars(false) && !p.GetScrollBars());
  EXPECT_EQ(almacen.escrituras, (Textos{"Editor/ScrollBars=-1", "Editor/ScrollBars=0"}));
  EXPECT_EQ(efectos, std::vector<E>(2, E::BarrasDesplazamiento));
}

// A store that stops working: its reason is told once, at the first read or
// write that meets it, and the settings go on working for this session.
TEST_F(PresentacionTest, UnAlmacenQueFallaSeAvisaUnaVez) {
  struct AlmacenRoto : AlmacenEnMemoria {
    std::string Fallo() const override { return fallo; }
    std::string fallo;
  } roto;
  Presentacion q{roto};
  Textos vistos;
  q.AlMensaje = [&](const std::string& m) { vistos.push_back(m); };
  q.Carga();
  EXPECT_TRUE(vistos.empty());
  roto.fallo = "no se pudo";
  EXPECT_TRUE(q.SetTamFuente(12));
  EXPECT_TRUE(q.SetEspTab(8));
  EXPECT_EQ(vistos, Textos{"no se pudo"});
  EXPECT_EQ(q.GetTamFuente(), 12.0f);
  roto.fallo = "otro motivo";
  Presentacion r{roto};
  r.AlMensaje = q.AlMensaje;
  r.Carga();
  EXPECT_EQ(vistos, (Textos{"no se pudo", "otro motivo"}));
}

TEST_F(PresentacionTest, AceptarLlamaALosSetterEnOrden) {
  ValoresPresentar v;
  v.TamFuente = 12.0f, v.txtTab = " 8 ", v.ColorLetra = 4, v.ScrollBars = false;
  v.ColorLetraSel = 14, v.ColorFondoSel = 2, v.ColorComment = 3, v.ColorFondoEditor = 7;
  v.EspTab = 20, v.ColorPC = 9; // the tab width comes from the box; the keyword colour stays
  EXPECT_EQ(AceptaPresentar(p, v), std::nullopt);
  EXPECT_EQ(almacen.escrituras,
            (Textos{"Editor/TamFuente=12", "Editor/Tab=8", "Editor/m_ColorLetra=4",
                    "Editor/ScrollBars=0", "Editor/ColorLetraSel=14", "Editor/ColorFondoSel=2",
                    "Editor/ColorComment=3", "Editor/ColorFondoEditor=7"}));
  Olvida();
  v.txtTab = "33";
  EXPECT_EQ(AceptaPresentar(p, v),
            "Los espacios de tabulación deben estar comprendidos entre 1 y 32");
  EXPECT_TRUE(NadaOcurrio());
}

TEST(PresentacionDialogo, CasillaDeTabulacion) {
  for (const char* bien : {"1", "32", " 8 ", "04", "\t16"})
    EXPECT_EQ(CompruebaTab(bien), std::nullopt) << bien;
  for (const char* mal : {"0", "33", "", "  ", "abc", "4.5", "-4", "+4", "4 4", "99999999999"})
    EXPECT_EQ(CompruebaTab(mal), "Los espacios de tabulación deben estar comprendidos entre 1 y 32")
        << mal;
}

TEST(PresentacionDibujo, PaletaYValoresSeguros) {
  // Blue, red and yellow are where RGB and BGR orders part ways.
  const std::pair<int, std::uint32_t> paleta[]{{1, 0x000080}, {4, 0x800000},  {6, 0x808000},
                                               {9, 0x0000FF}, {12, 0xFF0000}, {16, 0}};
  for (auto [i, rgb] : paleta)
    EXPECT_EQ(ColorPaleta(i), rgb) << i;
  for (auto [i, seguro] : {std::pair{-1, 2}, {0, 0}, {15, 15}, {16, 2}, {INT32_MIN, 2}})
    EXPECT_EQ(ColorSeguro(i, 2), seguro) << i;
  const std::pair<float, float> tam[]{{6, 6},  {18, 18},       {20, 10},
                                      {0, 10}, {INFINITY, 10}, {NAN, 10}};
  for (auto [t, seguro] : tam)
    EXPECT_EQ(TamFuenteSegura(t), seguro) << t;
  for (auto [e, seguro] : {std::pair{1, 1}, {32, 32}, {0, 4}, {33, 4}})
    EXPECT_EQ(EspTabSegura(e), seguro) << e;
}

} // namespace
