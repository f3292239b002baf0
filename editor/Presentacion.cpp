#include "editor/Presentacion.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "editor/Paleta.h"
#include "lang/ConvierteNumero.h"

namespace {

constexpr const char* kSeccionEditor = "Editor";

// Each message is two literals joined with nothing between them.
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

std::string ATexto(int valor) { return std::to_string(valor); }
std::string ATexto(float valor) { return RealATexto(valor); }

} // namespace

// Reads every setting with its default as the text of an absent key, in the
// order EspTab, TamFuente, ColorLetra, ColorLetraSel, ColorFondoSel, ColorPC,
// ColorComment, ColorFondoEditor, ScrollBars. A value equal to its default is
// written straight back (under the key the setter writes, except ColorLetra,
// which goes back under "ColorLetra"); another value is left as stored.
// Reading is lenient: the text's leading number counts ("abc" is 0), an
// integer setting keeps the whole part ("12.7" is 12, "-3.9" is -3, beyond
// the int range the nearest int), the scroll-bar flag is on for any non-zero
// number.
void Presentacion::Carga() {
  a_.EspTab = CargaEntero("EspTab", "Tab", kDefEspTab);

  a_.TamFuente = TextoAReal(almacen_.Lee(kSeccionEditor, "TamFuente", ATexto(kDefTamFuente)));
  if (a_.TamFuente == kDefTamFuente) Guarda("TamFuente", ATexto(a_.TamFuente));
  Aplica(EfectoPresentacion::Fuente);

  a_.ColorLetra = CargaEntero("ColorLetra", "ColorLetra", kDefColorLetra);
  Aplica(EfectoPresentacion::ColorTexto);
  a_.ColorLetraSel = CargaEntero("ColorLetraSel", "ColorLetraSel", kDefColorLetraSel);
  a_.ColorFondoSel = CargaEntero("ColorFondoSel", "ColorFondoSel", kDefColorFondoSel);
  a_.ColorPC = CargaEntero("ColorPC", "ColorPC", kDefColorPC);
  a_.ColorComment = CargaEntero("ColorComment", "ColorComment", kDefColorComment);
  a_.ColorFondoEditor = CargaEntero("ColorFondoEditor", "ColorFondoEditor", kDefColorFondoEditor);
  Aplica(EfectoPresentacion::Fondo);

  a_.ScrollBars =
      LeeNumero(almacen_.Lee(kSeccionEditor, "ScrollBars", BooleanoATexto(kDefScrollBars))) != 0.0;
  if (a_.ScrollBars == kDefScrollBars) Guarda("ScrollBars", BooleanoATexto(a_.ScrollBars));
  Aplica(EfectoPresentacion::BarrasDesplazamiento);
  AvisaFalloAlmacen();
}

int Presentacion::CargaEntero(const char* claveLee, const char* claveEscribe, int porDefecto) {
  const int valor = TextoAEntero(almacen_.Lee(kSeccionEditor, claveLee, ATexto(porDefecto)));
  if (valor == porDefecto) Guarda(claveEscribe, ATexto(valor));
  return valor;
}

bool Presentacion::SetEspTab(int valor) {
  return Fija(a_.EspTab, valor, EsEspTab(valor), a_.EspTab, kMsjEspTab, "Tab",
              EfectoPresentacion::SoloGuardado);
}

bool Presentacion::SetTamFuente(float valor) {
  return Fija(a_.TamFuente, valor, EsTamFuente(valor), a_.TamFuente, kMsjTamFuente, "TamFuente",
              EfectoPresentacion::Fuente);
}

bool Presentacion::SetColorLetra(int valor) {
  return FijaColor(a_.ColorLetra, valor, a_.ColorLetra, kMsjColorLetra, "m_ColorLetra",
                   EfectoPresentacion::ColorTexto);
}

// A keyword colour equal to the text colour is never taken, whatever the
// current keyword colour; and one equal to the current keyword colour is taken
// again when it differs from the text colour.
bool Presentacion::SetColorPC(int valor) {
  return FijaColor(a_.ColorPC, valor, a_.ColorLetra, kMsjColorPC, "ColorPC",
                   EfectoPresentacion::Redibujo);
}

bool Presentacion::SetColorLetraSel(int valor) {
  return FijaColor(a_.ColorLetraSel, valor, a_.ColorLetraSel, kMsjColorLetraSel, "ColorLetraSel",
                   EfectoPresentacion::Redibujo);
}

bool Presentacion::SetColorFondoSel(int valor) {
  return FijaColor(a_.ColorFondoSel, valor, a_.ColorFondoSel, kMsjColorFondoSel, "ColorFondoSel",
                   EfectoPresentacion::Redibujo);
}

bool Presentacion::SetScrollBars(bool valor) {
  a_.ScrollBars = valor;
  Aplica(EfectoPresentacion::BarrasDesplazamiento);
  Guarda("ScrollBars", BooleanoATexto(valor));
  return true;
}

bool Presentacion::SetColorComment(int valor) {
  return FijaColor(a_.ColorComment, valor, a_.ColorComment, kMsjColorComment, "ColorComment",
                   EfectoPresentacion::Redibujo);
}

bool Presentacion::SetColorFondoEditor(int valor) {
  return FijaColor(a_.ColorFondoEditor, valor, a_.ColorFondoEditor, kMsjColorFondoEditor,
                   "ColorFondoEditor", EfectoPresentacion::Fondo);
}

// The setters' one course: a value out of range is refused with `mensaje`,
// one equal to `comparaCon` changes nothing, any other is stored, applied and
// saved under `clave`.
template <class T>
bool Presentacion::Fija(T& campo, T valor, bool valido, T comparaCon, const char* mensaje,
                        const char* clave, EfectoPresentacion efecto) {
  if (!valido) {
    Avisa(mensaje);
    return false;
  }
  if (valor == comparaCon) return false;
  campo = valor;
  Aplica(efecto);
  Guarda(clave, ATexto(valor));
  return true;
}

bool Presentacion::FijaColor(int& campo, int valor, int comparaCon, const char* mensaje,
                             const char* clave, EfectoPresentacion efecto) {
  return Fija(campo, valor, EsColor(valor), comparaCon, mensaje, clave, efecto);
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
