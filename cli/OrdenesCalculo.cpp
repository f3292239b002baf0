// mirkal-cli simplificar and despejar: the symbolic calculator from a terminal.

#include <iostream>

#include "algebra/CalcSimbolic.h"
#include "cli/Ordenes.h"

namespace {

int Resultado(const CalcSimbolic& calc, const std::string& texto) {
  if (calc.ErrNumber() != 0) return Rechazo(-1, 0, calc.ErrDesc());
  std::cout << texto << '\n';
  return kSalidaBien;
}

// The positional arguments, with "--" ending the options; returns false (after
// reporting) on an unknown option.
bool Posicionales(const Argumentos& args, const std::vector<std::string>& opciones,
                  std::vector<std::string>& vistas, std::vector<std::string>& posicionales) {
  bool soloTexto = false;
  for (const std::string& a : args) {
    if (!soloTexto && a == "--") {
      soloTexto = true;
    } else if (!soloTexto && a.rfind("--", 0) == 0) {
      bool conocida = false;
      for (const std::string& o : opciones)
        conocida = conocida || a == o;
      if (!conocida) {
        ErrorDeUso("opción desconocida: " + a);
        return false;
      }
      vistas.push_back(a);
    } else {
      posicionales.push_back(a);
    }
  }
  return true;
}

bool Tiene(const std::vector<std::string>& vistas, const std::string& opcion) {
  for (const std::string& v : vistas)
    if (v == opcion) return true;
  return false;
}

} // namespace

// mirkal-cli simplificar [--numerico] [--constantes] EXPRESIÓN
int OrdenSimplificar(const Argumentos& args) {
  std::vector<std::string> vistas, pos;
  if (!Posicionales(args, {"--numerico", "--constantes"}, vistas, pos)) return kSalidaUso;
  if (pos.size() != 1) return ErrorDeUso("simplificar espera una EXPRESIÓN");
  CalcSimbolic calc;
  if (Tiene(vistas, "--numerico")) calc.CalcExpNum(true);
  if (Tiene(vistas, "--constantes")) calc.ResolveConst(true);
  const std::string resultado = calc.Calc(pos[0]);
  return Resultado(calc, resultado);
}

// mirkal-cli despejar EXPRESIÓN VARIABLE
int OrdenDespejar(const Argumentos& args) {
  std::vector<std::string> vistas, pos;
  if (!Posicionales(args, {}, vistas, pos)) return kSalidaUso;
  if (pos.size() != 2) return ErrorDeUso("despejar espera una EXPRESIÓN y una VARIABLE");
  CalcSimbolic calc;
  const std::string resultado = calc.Desp_axNb(pos[0], pos[1]);
  return Resultado(calc, resultado);
}
