#include "editor/Coloreador.h"

#include <algorithm>

#include "lang/Vocabulario.h"

Coloreador::Coloreador() {
  lex_.IndPC(kPC);
  lex_.IndId(kId);
  lex_.IndNum(kNum);
  lex_.IndCom(kCom);
  lex_.IndFL(kFL);
  lex_.IndFA(kFA);
  lex_.IgnCom(false);
  // The language's names colour as keywords; the code is the keyword class.
  for (const auto nombre : kFunciones)
    lex_.AñadePC(kPC, std::string(nombre));
  for (const auto nombre : kConstantes)
    lex_.AñadePC(kPC, std::string(nombre));
}

void Coloreador::ColoreaFila(Documento& doc, int fila) {
  lex_.BufferBytes(doc.BytesFila(fila));
  lex_.IgnCom(false);
  for (lex_.SgtToken(); lex_.IndCls() != kFA; lex_.SgtToken()) {
    const int fin = lex_.Col(), ini = fin - lex_.LongLex();
    const int color = lex_.IndCls() == kPC ? pc_ : lex_.IndCls() == kCom ? comentario_ : letra_;
    for (int c = std::max(ini, 0); c < fin && c < doc.LongFila(fila); ++c)
      doc.PonColorCelda(fila, c, color);
  }
}

void Coloreador::ColoreaFilas(Documento& doc, int desde, int hasta) {
  for (int f = std::max(desde, 0); f <= hasta && f < doc.NumFilas(); ++f)
    ColoreaFila(doc, f);
}
