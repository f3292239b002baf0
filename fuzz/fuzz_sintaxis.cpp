// The syntax checker on any text, with each of its three checks, all on one
// checker: a check must not depend on the one before. A check either
// succeeds with no error, and its normalised text passes again and
// normalises to itself, or fails with a described error whose marked span
// lies inside its line.

#include "LectorFuzz.h"
#include "lang/Cp1252.h"
#include "lang/SintaxExp.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  const std::string texto = LectorFuzz(datos, tam).Resto(), bytes = Utf8ACp1252(texto);
  // Each line's characters as the lexer counts them: a line ends at "\r", perhaps with "\n".
  std::vector<int> largos(1, 0);
  for (std::size_t i = 0; i < bytes.size(); i += bytes.compare(i, 2, "\r\n") == 0 ? 2 : 1)
    bytes[i] == '\r' ? largos.push_back(0) : void(++largos.back());
  SintaxExp s;
  for (const auto comprueba :
       {&SintaxExp::SintaxExpr, &SintaxExp::SintaxEcu, &SintaxExp::SintaxDes}) {
    const bool valida = (s.*comprueba)(texto);
    const std::string expr = s.Expr();
    const int lin = s.ErrLin(), col = s.ErrCol(), len = s.ErrLen();
    EXIGE(valida ? s.ErrNumber() == 0 && (s.*comprueba)(expr) && s.Expr() == expr
                 : s.ErrNumber() != 0 && !s.ErrDesc().empty() && lin >= 0 &&
                       lin < std::ssize(largos) && col >= 0 && len >= 0 && col + len <= largos[lin],
          "«" + Visible(expr) + "» " + s.ErrDesc() + " (" + std::to_string(lin) + ", " +
              std::to_string(col) + ", " + std::to_string(len) + ")" + En(texto));
  }
  return 0;
}
