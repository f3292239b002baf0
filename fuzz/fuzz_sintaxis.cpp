// The syntax checker on any text, with each of its three checks, all on one
// checker: a check must not depend on the one before. A check either
// succeeds with no error, and its normalised text passes again and
// normalises to itself, or fails with a described error whose marked span
// lies inside its line.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "LectorFuzz.h"
#include "lang/Cp1252.h"
#include "lang/SintaxExp.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  LectorFuzz in(datos, tam);
  const std::string texto = in.Resto(), donde = " en «" + Visible(texto) + "»";
  // The characters of each line as the lexer counts them: a line ends at
  // "\r", with the "\n" that may follow it.
  const std::string bytes = Utf8ACp1252(texto);
  std::vector<int> largos(1, 0);
  for (std::size_t i = 0; i < bytes.size(); ++i)
    if (bytes[i] != '\r')
      ++largos.back();
    else
      largos.push_back(0), i += i + 1 < bytes.size() && bytes[i + 1] == '\n';

  SintaxExp s;
  for (const auto comprueba :
       {&SintaxExp::SintaxExpr, &SintaxExp::SintaxEcu, &SintaxExp::SintaxDes}) {
    if ((s.*comprueba)(texto)) {
      const std::string expr = s.Expr();
      EXIGE(s.ErrNumber() == 0 && (s.*comprueba)(expr) && s.Expr() == expr,
            "el texto normalizado «" + Visible(expr) + "» no es normal: " + s.ErrDesc() + donde);
      continue;
    }
    const int lin = s.ErrLin(), col = s.ErrCol(), len = s.ErrLen();
    EXIGE(s.ErrNumber() != 0 && !s.ErrDesc().empty(), "un fallo sin error descrito" + donde);
    EXIGE(lin >= 0 && lin < static_cast<int>(largos.size()) && col >= 0 && len >= 0 &&
              col + len <= largos[static_cast<std::size_t>(lin)],
          "el error marca fuera de su línea (" + std::to_string(lin) + ", " + std::to_string(col) +
              ", " + std::to_string(len) + ") " + s.ErrDesc() + donde);
  }
  return 0;
}
