#pragma once
// Presentacion: the look of the text area, nine settings (AjustesPresentacion)
// kept in the per-user store. The main window loads them at start-up and
// changes them through setters that check, apply and save at once; it hears
// of a refused value through AlMensaje and of what it must redo through
// AlAplicar, and decides neither itself.
//
// Kept on purpose: the tab width is read from "EspTab" but written to "Tab",
// and a text colour the user chooses is written to "m_ColorLetra" while
// start-up reads "ColorLetra". Such a change lasts until the program ends.
// Loaded values are not range-checked (see ValoresSeguros.h).

#include <functional>
#include <string>

#include "editor/AjustesPresentacion.h"
#include "editor/AlmacenAjustes.h"

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

  // Start-up: reads the nine settings from section "Editor", writes back
  // those equal to their default, and reports Fuente, ColorTexto, Fondo and
  // BarrasDesplazamiento as it loads them.
  void Carga();

  // Each setter refuses a value out of range (the message goes to AlMensaje),
  // does nothing for a value equal to the current one, and otherwise stores
  // it, reports its effect to AlAplicar and saves it; true when it did.
  // SetColorPC compares with the text colour, not with the keyword colour;
  // SetScrollBars neither checks nor compares. A store that fails says why
  // through AlMensaje, once for each new failure.
  bool SetEspTab(int valor);
  bool SetTamFuente(float valor);
  bool SetColorLetra(int valor);
  bool SetColorPC(int valor);
  bool SetColorLetraSel(int valor);
  bool SetColorFondoSel(int valor);
  bool SetScrollBars(bool valor);
  bool SetColorComment(int valor);
  bool SetColorFondoEditor(int valor);

  const AjustesPresentacion& Ajustes() const { return a_; }
  int GetEspTab() const { return a_.EspTab; }
  float GetTamFuente() const { return a_.TamFuente; }
  int GetColorLetra() const { return a_.ColorLetra; }
  int GetColorPC() const { return a_.ColorPC; }
  int GetColorLetraSel() const { return a_.ColorLetraSel; }
  int GetColorFondoSel() const { return a_.ColorFondoSel; }
  bool GetScrollBars() const { return a_.ScrollBars; }
  int GetColorComment() const { return a_.ColorComment; }
  int GetColorFondoEditor() const { return a_.ColorFondoEditor; }

  // Set by the window; either may be left empty.
  std::function<void(const std::string& mensaje)> AlMensaje;
  std::function<void(EfectoPresentacion efecto)> AlAplicar;

private:
  template <class T>
  bool Fija(T& campo, T valor, bool valido, T comparaCon, const char* mensaje, const char* clave,
            EfectoPresentacion efecto);
  bool FijaColor(int& campo, int valor, int comparaCon, const char* mensaje, const char* clave,
                 EfectoPresentacion efecto);
  int CargaEntero(const char* claveLee, const char* claveEscribe, int porDefecto);
  void Guarda(const char* clave, const std::string& texto);
  void AvisaFalloAlmacen();
  void Avisa(const std::string& mensaje);
  void Aplica(EfectoPresentacion efecto);

  AlmacenAjustes& almacen_;
  std::string falloAvisado_;
  AjustesPresentacion a_;
};
