#pragma once
// The nine presentation settings as plain values: each one's default and
// valid range, and the struct that carries them together.

inline constexpr int kDefEspTab = 4;
inline constexpr float kDefTamFuente = 10.0f;
inline constexpr int kDefColorLetra = 0;
inline constexpr int kDefColorPC = 1;
inline constexpr int kDefColorLetraSel = 15;
inline constexpr int kDefColorFondoSel = 1;
inline constexpr bool kDefScrollBars = true;
inline constexpr int kDefColorComment = 2;
inline constexpr int kDefColorFondoEditor = 15;

// The tab width in columns, and what is said of one out of range (by the
// setter and by the dialog's tab box alike).
inline constexpr int kMinEspTab = 1, kMaxEspTab = 32;
inline constexpr const char* kMsjEspTab = "Los espacios de tabulación deben estar "
                                          "comprendidos entre 1 y 32";
inline constexpr bool EsEspTab(int esp) { return esp >= kMinEspTab && esp <= kMaxEspTab; }

// The font size in points. Written so that NaN, which compares false with
// everything, is out of range.
inline constexpr float kMinTamFuente = 6.0f, kMaxTamFuente = 18.0f;
inline constexpr bool EsTamFuente(float tam) {
  return tam >= kMinTamFuente && tam <= kMaxTamFuente;
}

// Colours are indices into the palette (Paleta.h).
struct AjustesPresentacion {
  int EspTab = kDefEspTab;
  float TamFuente = kDefTamFuente;
  int ColorLetra = kDefColorLetra;       // plain text
  int ColorPC = kDefColorPC;             // keywords
  int ColorLetraSel = kDefColorLetraSel; // selected text
  int ColorFondoSel = kDefColorFondoSel; // behind selected text
  bool ScrollBars = kDefScrollBars;
  int ColorComment = kDefColorComment;
  int ColorFondoEditor = kDefColorFondoEditor; // the text area's background
};
