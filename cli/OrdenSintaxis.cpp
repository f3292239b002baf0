#include <iostream>

#include "cli/Ordenes.h"
#include "lang/Cp1252.h"
#include "lang/SintaxExp.h"

// mirkal-cli sintaxis [--ecuacion | --desigualdad] TEXTO
int OrdenSintaxis(const Argumentos& args) {
  enum class Forma { Expresion, Ecuacion, Desigualdad } forma = Forma::Expresion;
  const std::string* texto = nullptr;
  bool soloTexto = false; // after "--" everything is the text
  for (const std::string& a : args) {
    if (!soloTexto && a == "--") {
      soloTexto = true;
    } else if (!soloTexto && a == "--ecuacion") {
      forma = Forma::Ecuacion;
    } else if (!soloTexto && a == "--desigualdad") {
      forma = Forma::Desigualdad;
    } else if (!soloTexto && a.size() > 1 && a[0] == '-' && a[1] == '-') {
      return ErrorDeUso("opción desconocida: " + a);
    } else if (texto) {
      return ErrorDeUso("sobra un argumento: " + a);
    } else {
      texto = &a;
    }
  }
  if (!texto) return ErrorDeUso("falta el TEXTO que se ha de comprobar");

  SintaxExp sintaxis;
  const std::string doc = FinesDeLineaDeDocumento(*texto);
  const bool bien = forma == Forma::Ecuacion      ? sintaxis.SintaxEcu(doc)
                    : forma == Forma::Desigualdad ? sintaxis.SintaxDes(doc)
                                                  : sintaxis.SintaxExpr(doc);
  if (!bien) return Rechazo(sintaxis.ErrLin(), sintaxis.ErrCol(), sintaxis.ErrDesc());
  std::cout << sintaxis.Expr() << '\n';
  return kSalidaBien;
}
