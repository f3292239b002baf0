#pragma once
// The look of the text area: nine settings that the main window loads from the
// per-user store at start-up and changes through setters that validate, apply
// and save at once. The window learns of a refused value and of what it has to
// apply through two callbacks; it decides neither itself.
//
// Two key asymmetries are deliberate and kept: the tab width is read from
// "EspTab" but written to "Tab", and a text colour chosen by the user is
// written to "m_ColorLetra" while start-up reads "ColorLetra". A changed tab
// width or text colour thus lasts until the program ends, and the next start
// brings back the value stored under the key it reads.
//
// Loaded values are not range-checked, so a getter may return, say, colour 99.
// Whoever draws or edits with a setting passes it through ColorSeguro,
// TamFuenteSegura or EspTabSegura, which put the default in place of a value
// outside its range.

#include "editor/AlmacenAjustes.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

inline constexpr const char* kAplicacionAjustes = "Mirkal";
inline constexpr const char* kSeccionEditor = "Editor";

inline constexpr int kDefEspTab = 4;
inline constexpr float kDefTamFuente = 10.0f;
inline constexpr int kDefColorLetra = 0;
inline constexpr int kDefColorPC = 1;
inline constexpr int kDefColorLetraSel = 15;
inline constexpr int kDefColorFondoSel = 1;
inline constexpr bool kDefScrollBars = true;
inline constexpr int kDefColorComment = 2;
inline constexpr int kDefColorFondoEditor = 15;

// What the text area has to do after a setting took a new value.
enum class EfectoPresentacion {
  Fuente,               // new font size: recompute character metrics, scroll bars and view
  ColorTexto,           // new fore colour of the text area
  Redibujo,             // the view is redrawn with the colours it reads
  Fondo,                // new background colour of the text area, then redraw
  BarrasDesplazamiento, // show or hide both scroll bars, then lay the text area out again
  SoloGuardado,         // nothing to show: the tab width is read on the next Tab key
};

class Presentacion {
public:
  explicit Presentacion(AlmacenAjustes& almacen) : almacen_(almacen) {}

  // Start-up: reads every setting from section "Editor", with its default as
  // the text of an absent key, in the order EspTab, TamFuente, ColorLetra,
  // ColorLetraSel, ColorFondoSel, ColorPC, ColorComment, ColorFondoEditor,
  // ScrollBars. A value equal to its default is written straight back (under
  // the key the setter writes, except ColorLetra, which goes back under
  // "ColorLetra"); another value is left as stored. Reading is lenient: the
  // text's leading number counts ("abc" is 0), an integer setting keeps the
  // whole part ("12.7" is 12, "-3.9" is -3, beyond the int range the nearest
  // int), the scroll-bar flag is on for any non-zero number. Reports
  // Fuente, ColorTexto, Fondo and BarrasDesplazamiento as it loads them.
  // A store that cannot be read or written says why through AlMensaje, once
  // for each new failure, here or at the setter that meets it.
  void Carga();

  // Each setter refuses a value out of range (the message goes to AlMensaje),
  // does nothing for a value equal to the current one, and otherwise stores
  // it, reports its effect to AlAplicar and saves it. The result says whether
  // the value was stored and saved. SetColorPC compares with the text colour,
  // not with the keyword colour; SetScrollBars neither validates nor compares.
  bool SetEspTab(int valor);
  bool SetTamFuente(float valor);
  bool SetColorLetra(int valor);
  bool SetColorPC(int valor);
  bool SetColorLetraSel(int valor);
  bool SetColorFondoSel(int valor);
  bool SetScrollBars(bool valor);
  bool SetColorComment(int valor);
  bool SetColorFondoEditor(int valor);

  int GetEspTab() const { return m_EspTab; }
  float GetTamFuente() const { return m_TamFuente; }
  int GetColorLetra() const { return m_ColorLetra; }
  int GetColorPC() const { return m_ColorPC; }
  int GetColorLetraSel() const { return m_ColorLetraSel; }
  int GetColorFondoSel() const { return m_ColorFondoSel; }
  bool GetScrollBars() const { return m_ScrollBars; }
  int GetColorComment() const { return m_ColorComment; }
  int GetColorFondoEditor() const { return m_ColorFondoEditor; }

  // Set by the window; either may be left empty.
  std::function<void(const std::string& mensaje)> AlMensaje;
  std::function<void(EfectoPresentacion efecto)> AlAplicar;

private:
  bool FijaColor(int& campo, int valor, int comparaCon, const char* mensaje, const char* clave,
                 EfectoPresentacion efecto);
  int CargaEntero(const char* claveLee, const char* claveEscribe, int porDefecto);
  void Guarda(const char* clave, const std::string& texto);
  void AvisaFalloAlmacen();
  void Avisa(const std::string& mensaje);
  void Aplica(EfectoPresentacion efecto);

  AlmacenAjustes& almacen_;
  std::string falloAvisado_;
  int m_EspTab = kDefEspTab;
  float m_TamFuente = kDefTamFuente;
  int m_ColorLetra = kDefColorLetra;
  int m_ColorPC = kDefColorPC;
  int m_ColorLetraSel = kDefColorLetraSel;
  int m_ColorFondoSel = kDefColorFondoSel;
  bool m_ScrollBars = kDefScrollBars;
  int m_ColorComment = kDefColorComment;
  int m_ColorFondoEditor = kDefColorFondoEditor;
};

// The classic 16-colour text-mode palette as 0xRRGGBB; black outside 0-15.
std::uint32_t ColorPaleta(int indice);

// The index itself when it lies in 0-15, else porDefecto.
int ColorSeguro(int indice, int porDefecto);

// The value itself inside its setter's range (6-18, 1-32), else the default.
float TamFuenteSegura(float tam);
int EspTabSegura(int esp);

// The palette's entries by name, in index order, as the dialog lists them.
inline constexpr std::array<const char*, 16> kNombresColor{
    "Negro",      "Azul",         "Verde",          "Agua marina",
    "Rojo",       "Fucsia",       "Amarillo",       "Blanco",
    "Gris",       "Azul claro",   "Verde claro",    "Agua marina claro",
    "Rojo claro", "Fucsia claro", "Amarillo claro", "Blanco brillante"};

// The font sizes the dialog offers.
inline constexpr std::array<int, 10> kTamFuentesDialogo{6, 7, 8, 9, 10, 11, 12, 14, 16, 18};

// The presentation dialog's controls. The keyword colour is not among them.
struct ValoresPresentar {
  float TamFuente = kDefTamFuente;
  std::string txtTab;
  int ColorLetra = kDefColorLetra;
  bool ScrollBars = kDefScrollBars;
  int ColorLetraSel = kDefColorLetraSel;
  int ColorFondoSel = kDefColorFondoSel;
  int ColorComment = kDefColorComment;
  int ColorFondoEditor = kDefColorFondoEditor;
};

// The controls as the dialog opens: the current settings, the tab width as
// text, and colours outside 0-15 shown as their defaults so that every
// colour list has an entry to select.
ValoresPresentar AbrePresentar(const Presentacion& p);

// The OK button's check of the tab box: a whole number from 1 to 32, blanks
// around it allowed. The message to show, or nothing.
std::optional<std::string> CompruebaTab(const std::string& txtTab);

// The OK button: when CompruebaTab refuses the tab box, returns its message
// and calls no setter (the dialog stays open with the box selected);
// otherwise calls SetTamFuente, SetEspTab, SetColorLetra, SetScrollBars,
// SetColorLetraSel, SetColorFondoSel, SetColorComment, SetColorFondoEditor in
// that order and returns nothing (the dialog closes).
std::optional<std::string> AceptaPresentar(Presentacion& p, const ValoresPresentar& v);
