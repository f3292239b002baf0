#pragma once
// The colouring pass: the editor's own lexer reads one row and retints its
// cells, keywords (the language's functions and constants) in the keyword
// colour, comments to the end of the row in the comment colour, every other
// token in the text colour. Only the colour bytes change.

#include "editor/Documento.h"
#include "lang/AnaLex.h"

class Coloreador {
public:
  Coloreador();
  void Colores(int letra, int palabraClave, int comentario) {
    letra_ = letra, pc_ = palabraClave, comentario_ = comentario;
  }
  void ColoreaFila(Documento& doc, int fila);
  void ColoreaFilas(Documento& doc, int desde, int hasta);

  // The class codes the editor gives its lexer.
  enum Clase : int { kPC = 1, kId = 2, kNum = 3, kCom = 4, kFL = 5, kFA = 6 };

private:
  AnaLex lex_;
  int letra_ = 0, pc_ = 1, comentario_ = 2;
};
