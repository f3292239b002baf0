// The symbolic calculator on any text: Calc with each combination of its
// switches and decimal separators, IguCero, and Desp_axNb for a variable
// named by the input. A failure fills the error record and gives ""; a
// result is an expression of the language, which the calculator reads again
// without a syntax error.

#include "LectorFuzz.h"
#include "algebra/CalcSimbolic.h"
#include "lang/Errores.h"

const std::array<const char*, 10> kVariables = {"x",    "y",  "X",   "dy_dx", "t",
                                                "a1_b", "pi", "Sin", "",      "x y"};

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  LectorFuzz in(datos, tam);
  const std::uint8_t opciones = in.Byte();
  const int operacion = (opciones >> 3) % 3;
  const std::string variable = operacion != 2   ? ""
                               : opciones & 128 ? in.TextoCorto(8)
                                                : kVariables[in.Byte() % kVariables.size()];
  const std::string texto = in.Resto();
  CalcSimbolic c;
  c.CalcExpNum(opciones & 1);
  EXIGE(c.ResolveConst());
  c.ResolveConst(opciones & 2);
  c.PuntoDec(opciones & 4 ? "," : ".");
  std::string r = operacion == 0   ? c.Calc(texto)
                  : operacion == 2 ? c.Desp_axNb(texto, variable)
                                   : texto;
  EXIGE(operacion != 1 || c.IguCero(r) == (c.ErrNumber() == 0), En(texto));
  const bool fallo = c.ErrNumber() != 0;
  const auto caso = [&] { return "«" + Visible(r) + "», " + c.ErrDesc() + En(texto); };
  EXIGE(operacion == 1 || (r.empty() == fallo && (!fallo || !c.ErrDesc().empty())), caso());
  if (fallo) return 0;
  // Read back, fresh, with the same switches and the "." results are written with.
  CalcSimbolic relee;
  relee.CalcExpNum(c.CalcExpNum()), relee.ResolveConst(c.ResolveConst());
  // No error saying it is no expression: "(", ")", an operand or the end expected, or too deep.
  relee.Calc(r);
  for (const std::int32_t sintaxis : {NumeroError(1), NumeroError(2), NumeroError(3),
                                      NumeroError(5), NumeroError(ErrAritmetica::Anidamiento)})
    EXIGE(relee.ErrNumber() != sintaxis, relee.ErrDesc() + ", " + caso());
  // Nothing of one call leaks into the next.
  EXIGE(operacion != 0 || (c.Calc(texto) == r && c.ErrNumber() == 0), caso());
  return 0;
}
