// Solving a*x^n + b = 0 for x: the only equations the calculator solves.

#include "algebra/CalcInterno.h"
#include "algebra/Parentesis.h"
#include "algebra/Piezas.h"
#include "algebra/TextoNumero.h"
#include "lang/Cp1252.h"
#include "lang/Errores.h"

std::string MotorCalc::Desp_axNb(const std::string& exp, const std::string& var) {
  errNumber_ = 0;
  Empieza();
  try {
    std::string numerador = SimplExp(Utf8ACp1252(exp));
    const std::string variable = Utf8ACp1252(var);
    std::string a, b, n;
    // A quotient is zero where its numerator is: the denominator is dropped.
    // When the numerator does not decompose, it is read once more, so that
    // what a quotient kept whole, such as the negated sum of
    // -(x*dy_dx-y)/x^2, becomes a sum of terms.
    for (int vuelta = 0;; ++vuelta) {
      if (vuelta > 8) throw ErrorMotor(ErrCalc::NoDespeja);
      std::string_view num, den;
      if (Fraccion(Escanea(numerador), num, den)) {
        numerador = SimplExp(num, true);
        continue;
      }
      if (DescomponAxNb(numerador, variable, a, b, n)) break;
      std::string otra = SimplExp(numerador, true);
      if (vuelta >= 3 || otra == numerador) throw ErrorMotor(ErrCalc::NoDespeja);
      numerador = std::move(otra);
    }
    return Cp1252AUtf8(SimplExp("(-(" + b + ")/(" + a + "))^(1/" + n + ")", true));
  } catch (const ErrorMotor& e) {
    AtrapaError(e);
    return "";
  }
}

// exp = A*var^N + B: A sums the coefficients of the terms that hold var, B
// the terms that do not, and every term holding var has the same exponent N.
bool MotorCalc::DescomponAxNb(std::string_view exp, std::string_view var, std::string& a,
                              std::string& b, std::string& n) {
  const std::string nombre = EnMayusculas(var);
  const Escaneo e = Escanea(exp);
  // Whether a text holds var as a whole identifier.
  auto contieneVar = [&](std::string_view texto) {
    const Escaneo t = Escanea(texto);
    for (int i = 0; i < static_cast<int>(t.toks.size()); ++i)
      if (t.toks[i].tipo == kId && EnMayusculas(t.Trozo(i, i + 1)) == nombre) return true;
    return false;
  };
  a.clear(), b.clear(), n.clear();
  for (const Termino& t : Terminos(e)) {
    const Factor* variable = nullptr;
    std::string resto;
    for (const Factor& f : t.lit) {
      if (f.clave == nombre && (f.exp.empty() || !contieneVar(f.exp))) {
        if (variable) return false; // var twice in one term
        variable = &f;
        continue;
      }
      if (contieneVar(f.texto)) return false; // var in a position that is no power of it
      if (!resto.empty()) resto += '*';
      resto += f.texto;
    }
    if (!variable) {
      Une(b, t.negativo ? "-" + std::string(t.cuerpo) : std::string(t.cuerpo));
      continue;
    }
    // The coefficient: the other factors with the term's numeric part and sign.
    Une(a, EscribeTermino(t.coef, resto));
    const std::string exponente = variable->exp.empty() ? "1" : std::string(variable->exp);
    if (n.empty())
      n = exponente;
    else if (EnMayusculas(SinParentesis(n)) != EnMayusculas(SinParentesis(exponente)))
      return false;
  }
  if (b.empty()) b = "0";
  return !a.empty();
}
