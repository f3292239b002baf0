#include "editor/Presentacion.h"

#include "lang/ConvierteNumero.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace {

// Each message is two literals joined with nothing between them.
constexpr const char* kMsjEspTab = "Los espacios de tabulación deben estar "
                                   "comprendidos entre 1 y 32";
constexpr const char* kMsjTamFuente = "El tamaño de fuente debe estar "
                                      "comprendido entre 6 y 18";
constexpr const char* kMsjColorLetra = "El color de letra debe ser un valor "
                                       "comprendido entre 0 y 15";
constexpr const char* kMsjColorPC = "El color de palabra clave debe ser un valor "
                                    "comprendido entre 0 y 15";
constexpr const char* kMsjColorLetraSel = "El color de letra seleccionada debe ser un valor "
                                          "comprendido entre 0 y 15";
constexpr const char* kMsjColorFondoSel = "El color de fondo seleccionado debe ser un valor "
                                          "comprendido entre 0 y 15";
constexpr const char* kMsjColorComment = "El color de comentario debe ser un valor "
                                         "comprendido entre 0 y 15";
constexpr const char* kMsjColorFondoEditor = "El color de fondo debe ser un valor "
                                             "comprendido entre 0 y 15";

constexpr std::array<std::uint32_t, 16> kPaleta{
    0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000, 0xC0C0C0,
    0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};

bool EsColor(int indice) { return indice >= 0 && indice <= 15; }

// A stored text as an integer setting: its leading number's whole part, held
// to the int range, so that no stored text can overflow a field.
int TextoAEntero(const std::string& texto) {
  const double valor = std::trunc(LeeNumero(texto));
  if (std::isnan(valor)) return 0;
  if (valor >= static_cast<double>(std::numeric_limits<int>::max()))
    return std::numeric_limits<int>::max();
  if (valor <= static_cast<double>(std::numeric_limits<int>::min()))
    return std::numeric_limits<int>::min();
  return static_cast<int>(valor);
}

// Beyond the float range the size becomes an infinity rather than an
// undefined conversion; drawing then falls back to the default size.
float TextoAReal(const std::string& texto) {
  const double valor = LeeNumero(texto);
  constexpr double kMax = std::numeric_limits<float>::max();
  if (std::isnan(valor)) return 0.0f;
  if (valor > kMax) return std::numeric_limits<float>::infinity();
  if (valor < -kMax) return -std::numeric_limits<float>::infinity();
  return static_cast<float>(valor);
}

// The shortest decimal text that reads back as the same float: "10", "6.5".
std::string RealATexto(float valor) {
  char texto[32];
  const auto r = std::to_chars(texto, texto + sizeof texto, valor);
  return std::string(texto, r.ptr);
}

// True and False as the store has always held them.
std::string BooleanoATexto(bool valor) { return valor ? "-1" : "0"; }

} // namespace

void Presentacion::Carga() {
  m_EspTab = CargaEntero("EspTab", "Tab", kDefEspTab);

  m_TamFuente = TextoAReal(almacen_.Lee(kSeccionEditor, "TamFuente", RealATexto(kDefTamFuente)));
  if (m_TamFuente == kDefTamFuente) Guarda("TamFuente", RealATexto(m_TamFuente));
  Aplica(EfectoPresentacion::Fuente);

  m_ColorLetra = CargaEntero("ColorLetra", "ColorLetra", kDefColorLetra);
  Aplica(EfectoPresentacion::ColorTexto);
  m_ColorLetraSel = CargaEntero("ColorLetraSel", "ColorLetraSel", kDefColorLetraSel);
  m_ColorFondoSel = CargaEntero("ColorFondoSel", "ColorFondoSel", kDefColorFondoSel);
  m_ColorPC = CargaEntero("ColorPC", "ColorPC", kDefColorPC);
  m_ColorComment = CargaEntero("ColorComment", "ColorComment", kDefColorComment);
  m_ColorFondoEditor = CargaEntero("ColorFondoEditor", "ColorFondoEditor", kDefColorFondoEditor);
  Aplica(EfectoPresentacion::Fondo);

  m_ScrollBars =
      LeeNumero(almacen_.Lee(kSeccionEditor, "ScrollBars", BooleanoATexto(kDefScrollBars))) != 0.0;
  if (m_ScrollBars == kDefScrollBars) Guarda("ScrollBars", BooleanoATexto(m_ScrollBars));
  Aplica(EfectoPresentacion::BarrasDesplazamiento);
  AvisaFalloAlmacen();
}

int Presentacion::CargaEntero(const char* claveLee, const char* claveEscribe, int porDefecto) {
  const int valor =
      TextoAEntero(almacen_.Lee(kSeccionEditor, claveLee, std::to_string(porDefecto)));
  if (valor == porDefecto) Guarda(claveEscribe, std::to_string(valor));
  return valor;
}

bool Presentacion::SetEspTab(int valor) {
  if (valor < 1 || valor > 32) {
    Avisa(kMsjEspTab);
    return false;
  }
  if (valor == m_EspTab) return false;
  m_EspTab = valor;
  Aplica(EfectoPresentacion::SoloGuardado);
  Guarda("Tab", std::to_string(valor));
  return true;
}

bool Presentacion::SetTamFuente(float valor) {
  // Written so that NaN, which compares false with everything, is refused.
  if (!(valor >= 6.0f && valor <= 18.0f)) {
    Avisa(kMsjTamFuente);
    return false;
  }
  if (valor == m_TamFuente) return false;
  m_TamFuente = valor;
  Aplica(EfectoPresentacion::Fuente);
  Guarda("TamFuente", RealATexto(valor));
  return true;
}

bool Presentacion::SetColorLetra(int valor) {
  return FijaColor(m_ColorLetra, valor, m_ColorLetra, kMsjColorLetra, "m_ColorLetra",
                   EfectoPresentacion::ColorTexto);
}

// A keyword colour equal to the text colour is never taken, whatever the
// current keyword colour; and one equal to the current keyword colour is taken
// again when it differs from the text colour.
bool Presentacion::SetColorPC(int valor) {
  return FijaColor(m_ColorPC, valor, m_ColorLetra, kMsjColorPC, "ColorPC",
                   EfectoPresentacion::Redibujo);
}

bool Presentacion::SetColorLetraSel(int valor) {
  return FijaColor(m_ColorLetraSel, valor, m_ColorLetraSel, kMsjColorLetraSel, "ColorLetraSel",
                   EfectoPresentacion::Redibujo);
}

bool Presentacion::SetColorFondoSel(int valor) {
  return FijaColor(m_ColorFondoSel, valor, m_ColorFondoSel, kMsjColorFondoSel, "ColorFondoSel",
                   EfectoPresentacion::Redibujo);
}

bool Presentacion::SetScrollBars(bool valor) {
  m_ScrollBars = valor;
  Aplica(EfectoPresentacion::BarrasDesplazamiento);
  Guarda("ScrollBars", BooleanoATexto(valor));
  return true;
}

bool Presentacion::SetColorComment(int valor) {
  return FijaColor(m_ColorComment, valor, m_ColorComment, kMsjColorComment, "ColorComment",
                   EfectoPresentacion::Redibujo);
}

bool Presentacion::SetColorFondoEditor(int valor) {
  return FijaColor(m_ColorFondoEditor, valor, m_ColorFondoEditor, kMsjColorFondoEditor,
                   "ColorFondoEditor", EfectoPresentacion::Fondo);
}

bool Presentacion::FijaColor(int& campo, int valor, int comparaCon, const char* mensaje,
                             const char* clave, EfectoPresentacion efecto) {
  if (!EsColor(valor)) {
    Avisa(mensaje);
    return false;
  }
  if (valor == comparaCon) return false;
  campo = valor;
  Aplica(efecto);
  Guarda(clave, std::to_string(valor));
  return true;
}

void Presentacion::Guarda(const char* clave, const std::string& texto) {
  almacen_.Escribe(kSeccionEditor, clave, texto);
  AvisaFalloAlmacen();
}

// A store that fails keeps failing: its message is shown once, not at every
// setting that follows.
void Presentacion::AvisaFalloAlmacen() {
  const std::string fallo = almacen_.Fallo();
  if (fallo.empty() || fallo == falloAvisado_) return;
  falloAvisado_ = fallo;
  Avisa(fallo);
}

void Presentacion::Avisa(const std::string& mensaje) {
  if (AlMensaje) AlMensaje(mensaje);
}

void Presentacion::Aplica(EfectoPresentacion efecto) {
  if (AlAplicar) AlAplicar(efecto);
}

std::uint32_t ColorPaleta(int indice) { return EsColor(indice) ? kPaleta[indice] : 0x000000; }

int ColorSeguro(int indice, int porDefecto) { return EsColor(indice) ? indice : porDefecto; }

float TamFuenteSegura(float tam) { return tam >= 6.0f && tam <= 18.0f ? tam : kDefTamFuente; }

int EspTabSegura(int esp) { return esp >= 1 && esp <= 32 ? esp : kDefEspTab; }

ValoresPresentar AbrePresentar(const Presentacion& p) {
  ValoresPresentar v;
  v.TamFuente = p.GetTamFuente();
  v.txtTab = std::to_string(p.GetEspTab());
  v.ColorLetra = ColorSeguro(p.GetColorLetra(), kDefColorLetra);
  v.ScrollBars = p.GetScrollBars();
  v.ColorLetraSel = ColorSeguro(p.GetColorLetraSel(), kDefColorLetraSel);
  v.ColorFondoSel = ColorSeguro(p.GetColorFondoSel(), kDefColorFondoSel);
  v.ColorComment = ColorSeguro(p.GetColorComment(), kDefColorComment);
  v.ColorFondoEditor = ColorSeguro(p.GetColorFondoEditor(), kDefColorFondoEditor);
  return v;
}

namespace {

// A whole number from 1 to 32, blanks around it allowed; nothing otherwise.
std::optional<int> Tabulacion(const std::string& texto) {
  const auto ini = texto.find_first_not_of(" \t");
  if (ini == std::string::npos) return std::nullopt;
  const auto fin = texto.find_last_not_of(" \t");
  int valor = 0;
  for (std::size_t i = ini; i <= fin; ++i) {
    if (texto[i] < '0' || texto[i] > '9') return std::nullopt;
    valor = valor * 10 + (texto[i] - '0');
    if (valor > 32) return std::nullopt;
  }
  if (valor < 1) return std::nullopt;
  return valor;
}

} // namespace

std::optional<std::string> CompruebaTab(const std::string& txtTab) {
  if (Tabulacion(txtTab)) return std::nullopt;
  return kMsjEspTab;
}

std::optional<std::string> AceptaPresentar(Presentacion& p, const ValoresPresentar& v) {
  const auto tab = Tabulacion(v.txtTab);
  if (!tab) return kMsjEspTab;
  p.SetTamFuente(v.TamFuente);
  p.SetEspTab(*tab);
  p.SetColorLetra(v.ColorLetra);
  p.SetScrollBars(v.ScrollBars);
  p.SetColorLetraSel(v.ColorLetraSel);
  p.SetColorFondoSel(v.ColorFondoSel);
  p.SetColorComment(v.ColorComment);
  p.SetColorFondoEditor(v.ColorFondoEditor);
  return std::nullopt;
}
