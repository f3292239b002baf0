// The syntax checker on any text, with each of its three checks. A check
// either succeeds with no error or fails with a described error whose marked
// span lies inside the text; the normalised text of a success passes the
// same check again and normalises to itself.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "LectorFuzz.h"
#include "lang/Cp1252.h"
#include "lang/SintaxExp.h"

namespace {

enum class Chequeo { Expresion, Ecuacion, Desigualdad };

bool Comprueba(SintaxExp& s, Chequeo c, const std::string& texto) {
  switch (c) {
  case Chequeo::Expresion:
    return s.SintaxExpr(texto);
  case Chequeo::Ecuacion:
    return s.SintaxEcu(texto);
  case Chequeo::Desigualdad:
    return s.SintaxDes(texto);
  }
  return false;
}

// The lines as the lexer counts them: a line ends at "\r" (with the "\n"
// that may follow it); the lengths are in characters.
std::vector<int> LongitudesDeLinea(const std::string& bytes) {
  std::vector<int> largos(1, 0);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\r') {
      if (i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
      largos.push_back(0);
    } else {
      ++largos.back();
    }
  }
  return largos;
}

void Verifica(SintaxExp& s, Chequeo c, const std::string& texto) {
  const bool ok = Comprueba(s, c, texto);
  const std::string donde = "en «" + Visible(texto) + "»";
  if (ok) {
    EXIGE(s.ErrNumber() == 0, "éxito con ErrNumber " + std::to_string(s.ErrNumber()) + donde);
    const std::string expr = s.Expr();
    EXIGE(Comprueba(s, c, expr), "el texto normalizado «" + Visible(expr) +
                                     "» no pasa la comprobación: " + s.ErrDesc() + " " + donde);
    EXIGE(s.Expr() == expr,
          "normalizar «" + Visible(expr) + "» da «" + Visible(s.Expr()) + "» " + donde);
    return;
  }
  EXIGE(s.ErrNumber() != 0, "fallo sin ErrNumber " + donde);
  EXIGE(!s.ErrDesc().empty(), "fallo sin descripción " + donde);
  const std::vector<int> largos = LongitudesDeLinea(Utf8ACp1252(texto));
  const int lin = s.ErrLin(), col = s.ErrCol(), len = s.ErrLen();
  const std::string lugar = " (línea " + std::to_string(lin) + ", columna " + std::to_string(col) +
                            ", largo " + std::to_string(len) + ") ";
  EXIGE(lin >= 0 && lin < static_cast<int>(largos.size()), "línea fuera del texto" + lugar + donde);
  EXIGE(col >= 0 && len >= 0 && col + len <= largos[static_cast<std::size_t>(lin)],
        "el error marca fuera de su línea" + lugar + s.ErrDesc() + " " + donde);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  LectorFuzz in(datos, tam);
  const std::string texto = in.Resto();
  // One checker for all three checks: a check must not depend on the one
  // before it.
  SintaxExp s;
  Verifica(s, Chequeo::Expresion, texto);
  Verifica(s, Chequeo::Ecuacion, texto);
  Verifica(s, Chequeo::Desigualdad, texto);
  return 0;
}
