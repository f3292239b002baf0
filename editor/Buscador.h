#pragma once
// Find and replace on the editor's document, without a window. A match never
// spans two rows. The search text and the replacement arrive as UTF-8; rows
// hold one Windows-1252 byte per character, so every position and length
// counts characters.
//
// The window shows the messages and asks the question through two handlers;
// selecting a match does not mark rows in Editor::TomaCambios, so the window
// redraws the view after every call and before showing a question.

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "editor/Editor.h"
#include "editor/Respuesta.h"

// The first occurrence of `texto` in `linea` at or after the 1-based
// position `inicio`, as a 1-based position, or 0. With `palabraCompleta`,
// an occurrence counts only between non-word characters (EsCarPalabra) or the
// row's ends.
// `modoComparacion` 0 compares exactly, 1 ignores letter case. An empty
// `texto` or an `inicio` below 1 finds nothing.
int BuscaEnCadena(std::string_view linea, std::string_view texto, int inicio, bool palabraCompleta,
                  int modoComparacion);

// UnoAUno asks before each replacement (cmdSí); Todos replaces every match
// without asking (cmdReplaceAll).
enum class ModoReemplazo { UnoAUno, Todos };

class Buscador {
public:
  static constexpr const char* kArgumentosNoValidos = "Argumentos de búsqueda no válidos";
  static constexpr const char* kNoEncontrado = "No se encontró el texto de búsqueda";
  static constexpr const char* kPregunta = "¿Reemplazar la cadena buscada?";

  explicit Buscador(Editor& editor) : editor_(editor) {}

  // The window's message box (exclamation icon); without one, messages are
  // dropped.
  void FijaAviso(std::function<void(const std::string&)> aviso) { aviso_ = std::move(aviso); }
  // The window's Yes/No/Cancel box; without one, asking answers Cancelar.
  void FijaPregunta(std::function<Respuesta(const std::string&)> pregunta) {
    pregunta_ = std::move(pregunta);
  }

  // Looks for `texto` from (fila, col) to the end of the document. Found:
  // selects the match, leaves `fila` on its row and `col` just after it (where
  // the next call goes on) and returns true. Otherwise `fila` is -1 and the
  // window is told why.
  bool Search(const std::string& texto, int& fila, int& col, bool palabraCompleta,
              int modoComparacion);
  // The last search again, from the cursor; false when there was none or
  // nothing more is found.
  bool BuscarSiguiente();
  bool HayBusqueda() const { return !ultimo_.empty(); }

  // Replaces the matches of `texto` from (fila, col) on by `reemplazo`, all
  // of them as one undo record, and returns how many were replaced. Each
  // search goes on after the text just replaced or left, so a replacement
  // that contains the text sought ends. A replacement refused for making
  // its row too long is reported and skipped. On return (fila, col) is where
  // a next search would go on, or fila is -1 when nothing was found.
  int Reemp(const std::string& texto, const std::string& reemplazo, int& fila, int& col,
            bool palabraCompleta, int modoComparacion, ModoReemplazo modo);

private:
  struct Busqueda {
    std::string bytes; // Windows-1252
    bool palabraCompleta = false;
    int modo = 0;
  };
  bool Valida(int fila, int col, int modoComparacion);
  // The next match at or after (fila, col), quietly: true with its place.
  bool Encuentra(const Busqueda& b, int& fila, int& col) const;
  void Avisa(const std::string& texto) const;

  Editor& editor_;
  std::function<void(const std::string&)> aviso_;
  std::function<Respuesta(const std::string&)> pregunta_;
  // The last search, for BuscarSiguiente: its text in UTF-8 and options.
  std::string ultimo_;
  bool ultimaPalabra_ = false;
  int ultimoModo_ = 0;
};
