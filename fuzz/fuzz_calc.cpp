// The symbolic calculator on any text: Calc with each combination of its
// switches and decimal separators, IguCero, and Desp_axNb for a variable
// named by the input. A failure fills the error record and gives ""; a
// result is an expression of the language, which the calculator reads again
// without a syntax error.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "LectorFuzz.h"
#include "algebra/CalcSimbolic.h"
#include "lang/Errores.h"

namespace {

const std::array<const char*, 10> kVariables = {"x",    "y",  "X",   "dy_dx", "t",
                                                "a1_b", "pi", "Sin", "",      "x y"};

// Errors that say the text is not an expression: "(" or ")" or an expression
// or the end expected. A result of the calculator never earns one.
bool EsErrorDeSintaxis(std::int32_t n) {
  return n == NumeroError(1) || n == NumeroError(2) || n == NumeroError(3) || n == NumeroError(5) ||
         n == NumeroError(ErrAritmetica::Anidamiento);
}

// A result must read again as an expression, with the same switches and
// the "." separator that results are written with.
void Relee(const std::string& resultado, bool expNum, bool constantes, const std::string& origen) {
  CalcSimbolic c;
  c.CalcExpNum(expNum);
  c.ResolveConst(constantes);
  c.Calc(resultado);
  EXIGE(!EsErrorDeSintaxis(c.ErrNumber()), "el resultado «" + Visible(resultado) + "» de «" +
                                               Visible(origen) + "» no se lee: " + c.ErrDesc());
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  CuentaAvisos();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  LectorFuzz in(datos, tam);
  const std::uint8_t opciones = in.Byte();
  const bool expNum = opciones & 1, constantes = opciones & 2, coma = opciones & 4;
  const int operacion = (opciones >> 3) % 3;
  std::string variable;
  if (operacion == 2)
    variable = (opciones & 128) ? in.TextoCorto(8) : kVariables[in.Byte() % kVariables.size()];
  const std::string texto = in.Resto();

  CalcSimbolic c;
  c.CalcExpNum(expNum);
  EXIGE(c.ResolveConst(), "CalcExpNum no activa ResolveConst");
  c.ResolveConst(constantes);
  c.PuntoDec(coma ? "," : ".");
  const bool expNumReal = c.CalcExpNum(), constantesReales = c.ResolveConst();
  std::string r = texto;
  if (operacion == 1)
    EXIGE(c.IguCero(r) == (c.ErrNumber() == 0), "IguCero y ErrNumber no concuerdan");
  else
    r = operacion == 0 ? c.Calc(texto) : c.Desp_axNb(texto, variable);
  if (c.ErrNumber() != 0) {
    EXIGE(operacion == 1 || (r.empty() && !c.ErrDesc().empty()),
          "un fallo que devuelve «" + Visible(r) + "» o no se describe");
    return 0;
  }
  EXIGE(operacion == 1 || !r.empty(), "acepta «" + Visible(texto) + "» y devuelve \"\"");
  Relee(r, expNumReal, constantesReales, texto);
  // Nothing of one call leaks into the next.
  if (operacion == 0)
    EXIGE(c.Calc(texto) == r && c.ErrNumber() == 0, "Calc no es repetible en «" + Visible(texto));
  return 0;
}
