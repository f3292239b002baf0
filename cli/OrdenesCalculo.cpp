// mirkal-cli simplificar, despejar and formato: the symbolic calculator and
// the number formatter from a terminal.

#include <iostream>

#include "algebra/CalcSimbolic.h"
#include "algebra/FormatNum.h"
#include "cli/Opciones.h"
#include "cli/Ordenes.h"
#include "commands/ConfigDerivacion.h"

namespace {

int Resultado(const CalcSimbolic& calc, const std::string& texto) {
  if (calc.ErrNumber() != 0) return Rechazo(-1, 0, calc.ErrDesc());
  std::cout << texto << '\n';
  return kSalidaBien;
}

} // namespace

// mirkal-cli simplificar [--numerico] [--constantes] EXPRESIÓN
int OrdenSimplificar(const Argumentos& args) {
  ArgumentosLeidos leidos;
  const std::string error = LeeArgumentos(args, {{"--numerico"}, {"--constantes"}}, leidos);
  if (!error.empty()) return ErrorDeUso(error);
  if (leidos.posicionales.size() != 1) return ErrorDeUso("simplificar espera una EXPRESIÓN");
  CalcSimbolic calc;
  if (leidos.Tiene("--numerico")) calc.CalcExpNum(true);
  if (leidos.Tiene("--constantes")) calc.ResolveConst(true);
  const std::string resultado = calc.Calc(leidos.posicionales[0]);
  return Resultado(calc, resultado);
}

// mirkal-cli despejar EXPRESIÓN VARIABLE
int OrdenDespejar(const Argumentos& args) {
  ArgumentosLeidos leidos;
  const std::string error = LeeArgumentos(args, {}, leidos);
  if (!error.empty()) return ErrorDeUso(error);
  const std::vector<std::string>& pos = leidos.posicionales;
  if (pos.size() != 2) return ErrorDeUso("despejar espera una EXPRESIÓN y una VARIABLE");
  CalcSimbolic calc;
  const std::string resultado = calc.Desp_axNb(pos[0], pos[1]);
  return Resultado(calc, resultado);
}

// mirkal-cli formato [--fracciones] [--cifras N] TEXTO
int OrdenFormato(const Argumentos& args) {
  ArgumentosLeidos leidos;
  const std::string error = LeeArgumentos(args, {{"--fracciones"}, {"--cifras", "", true}}, leidos);
  if (!error.empty()) return ErrorDeUso(error);
  const std::vector<std::string>& pos = leidos.posicionales;
  if (pos.empty()) return ErrorDeUso("formato espera un TEXTO");
  if (pos.size() > 1) return ErrorDeUso("sobra un argumento: " + pos[1]);
  std::string cifras = "5";
  for (const OpcionDada& o : leidos.opciones)
    if (o.larga == "--cifras") cifras = o.valor;
  // The derivation settings' own range check of the rounding digits.
  if (CompruebaConfig(cifras, "y", "x"))
    return ErrorDeUso("--cifras espera un número entre 0 y 300");
  FormatNum formato;
  formato.OutFracc(leidos.Tiene("--fracciones"));
  formato.CifRed(std::stoi(cifras));
  std::cout << formato.FCoef(pos[0]) << '\n';
  return kSalidaBien;
}
