#include <iostream>

#include "cli/Opciones.h"
#include "cli/Ordenes.h"
#include "lang/Cp1252.h"
#include "lang/SintaxExp.h"

// mirkal-cli sintaxis [--ecuacion | --desigualdad] TEXTO
int OrdenSintaxis(const Argumentos& args) {
  ArgumentosLeidos leidos;
  const std::string error = LeeArgumentos(args, {{"--ecuacion"}, {"--desigualdad"}}, leidos);
  if (!error.empty()) return ErrorDeUso(error);
  const std::vector<std::string>& pos = leidos.posicionales;
  if (pos.empty()) return ErrorDeUso("falta el TEXTO que se ha de comprobar");
  if (pos.size() > 1) return ErrorDeUso("sobra un argumento: " + pos[1]);
  // Of --ecuacion and --desigualdad, the one given last.
  const std::string forma = leidos.opciones.empty() ? "" : leidos.opciones.back().larga;

  SintaxExp sintaxis;
  const std::string doc = FinesDeLineaDeDocumento(pos[0]);
  const bool bien = forma == "--ecuacion"      ? sintaxis.SintaxEcu(doc)
                    : forma == "--desigualdad" ? sintaxis.SintaxDes(doc)
                                               : sintaxis.SintaxExpr(doc);
  if (!bien) return Rechazo(sintaxis.ErrLin(), sintaxis.ErrCol(), sintaxis.ErrDesc());
  std::cout << sintaxis.Expr() << '\n';
  return kSalidaBien;
}
