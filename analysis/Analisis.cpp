#include "analysis/Analisis.h"

#include <cmath>
#include <sstream>

#include "analysis/EscribeMirkal.h"
#include "analysis/ExpresionGinac.h"
#include "analysis/Formula.h"
#include "lang/Cp1252.h"
#include "lang/SintaxExp.h"

using namespace GiNaC;

namespace {

// Whether an expression has more than `limite` nodes, counted as a tree;
// the count stops as soon as it passes the limit, so that a result that
// shares its parts many times over is not walked whole.
bool Excede(const ex& e, int& quedan) {
  if (--quedan < 0) return true;
  for (std::size_t i = 0; i < e.nops(); ++i)
    if (Excede(e.op(i), quedan)) return true;
  return false;
}

ex Acotada(const ex& e, int limite) {
  if (Excede(e, limite)) throw ErrorAnalisis("La expresión es demasiado grande para analizarla");
  return e;
}

symbol Simbolo(Variables& variables, const std::string& nombre) {
  const std::string clave = EnMayusculas(Utf8ACp1252(nombre));
  auto sitio = variables.find(clave);
  if (sitio == variables.end()) sitio = variables.emplace(clave, symbol(nombre)).first;
  return sitio->second;
}

double Decimal(const ex& e) {
  const ex v = e.evalf();
  if (!is_a<numeric>(v) || !ex_to<numeric>(v).is_real())
    throw ErrorAnalisis("El valor en ese punto no es un número real");
  return ex_to<numeric>(v).to_double();
}

// "x=3,y=4": each name's value, read as an exact number.
std::map<std::string, ex> LeePunto(const std::string& punto) {
  std::map<std::string, ex> valores;
  std::stringstream partes(punto);
  for (std::string parte; std::getline(partes, parte, ',');) {
    const auto igual = parte.find('=');
    if (igual == std::string::npos)
      throw ErrorAnalisis("El punto se escribe nombre=valor, separados por comas: «" + parte + "»");
    Variables sinNombres;
    const std::string valor = parte.substr(igual + 1);
    SintaxExp s;
    if (!s.SintaxExpr(valor)) throw ErrorAnalisis("El valor «" + valor + "» no es válido");
    const ex v = LeeExpresion(s.Expr(), sinNombres);
    if (!sinNombres.empty()) throw ErrorAnalisis("El valor «" + valor + "» no es un número");
    valores[EnMayusculas(Utf8ACp1252(parte.substr(0, igual)))] = v;
  }
  return valores;
}

// Zero, exactly when the value is exact, or within rounding when functions
// had to be evaluated.
bool EsCero(const ex& valor) {
  const ex v = normal(valor);
  if (is_a<numeric>(v)) return v.is_zero();
  return std::fabs(Decimal(v)) < 1e-12;
}

} // namespace

ResultadoAnalisis Analisis::Analiza(const std::string& ecuacion, const std::string& punto) const {
  ResultadoAnalisis r;
  try {
    SintaxExp s;
    if (!s.SintaxEcu(ecuacion)) throw ErrorAnalisis(s.ErrDesc());
    const std::string normal = s.Expr();
    const auto igual = normal.find('=');
    Variables variables;
    const ex l = Acotada(LeeExpresion(normal.substr(0, igual), variables), kMaxNodosEcuacion);
    const ex d = Acotada(LeeExpresion(normal.substr(igual + 1), variables), kMaxNodosEcuacion);
    const symbol y = Simbolo(variables, varDep_), x = Simbolo(variables, varInd_);
    const ex f = l - d;
    const ex fy = f.diff(y), fx = f.diff(x);
    if (fy.is_zero()) throw ErrorAnalisis("No se pudo despejar el cociente de diferenciales");
    const ex d1 = Acotada(GiNaC::normal(Acotada(-fx / fy, kMaxNodosResultado)), kMaxNodosResultado);
    const ex d2 = Acotada(GiNaC::normal(Acotada(d1.diff(x) + d1.diff(y) * d1, kMaxNodosResultado)),
                          kMaxNodosResultado);
    r.ecuacion = EnMirkal(l) + " = " + EnMirkal(d);
    r.derivada = EnMirkal(d1);
    r.segunda = EnMirkal(d2);
    r.latexEcuacion = EnLatex(l) + " = " + EnLatex(d);
    r.latexDerivada = EnLatex(d1);
    r.latexSegunda = EnLatex(d2);
    r.formulaEcuacion = {
        Formula::Fila, "", false, {EnFormula(l), {Formula::Texto, " = ", false, {}}, EnFormula(d)}};
    r.formulaDerivada = EnFormula(d1);
    r.formulaSegunda = EnFormula(d2);
    // y = f(x): the dependent variable once, with a constant coefficient.
    r.explicita = is_a<numeric>(fy) && !f.subs(y == 0).has(y);
    if (punto.empty()) return r;

    const auto valores = LeePunto(punto);
    const auto valor = [&](const std::string& nombre) -> const ex* {
      const auto sitio = valores.find(EnMayusculas(Utf8ACp1252(nombre)));
      return sitio == valores.end() ? nullptr : &sitio->second;
    };
    const ex* x0 = valor(varInd_);
    if (!x0) throw ErrorAnalisis("Falta el valor de " + varInd_ + " en el punto");
    ex y0;
    if (const ex* dado = valor(varDep_)) {
      y0 = *dado;
    } else if (r.explicita) {
      y0 = GiNaC::normal(-f.subs(y == 0) / fy).subs(x == *x0);
    } else {
      throw ErrorAnalisis("Falta el valor de " + varDep_ +
                          " en el punto: la ecuación es implícita");
    }
    const exmap en{{x, *x0}, {y, y0}};
    if (!EsCero(f.subs(en)))
      throw ErrorAnalisis("El punto (" + EnMirkal(*x0) + ", " + EnMirkal(y0) +
                          ") no está en la curva");
    if (EsCero(fy.subs(en))) throw ErrorAnalisis("La pendiente no está definida en ese punto");
    const ex m = GiNaC::normal(d1.subs(en)), m2 = GiNaC::normal(d2.subs(en));
    r.conPunto = true;
    r.x0 = EnMirkal(*x0);
    r.y0 = EnMirkal(y0);
    r.pendiente = EnMirkal(m);
    r.segundaEnPunto = EnMirkal(m2);
    r.pendienteDecimal = Decimal(m);
    r.segundaDecimal = Decimal(m2);
    r.tangente = varDep_ + " = " + EnMirkal(expand(m * (x - *x0) + y0));
    r.normal = m.is_zero() ? varInd_ + " = " + r.x0
                           : varDep_ + " = " + EnMirkal(expand(-(x - *x0) / m + y0));
  } catch (const ErrorAnalisis& e) {
    r = ResultadoAnalisis{};
    r.error = e.what();
  } catch (const std::exception&) {
    // GiNaC's own refusals (a division by zero at the point, a value out of
    // its domain) come as standard exceptions, in English.
    r = ResultadoAnalisis{};
    r.error = "La ecuación no está definida en ese punto";
  }
  return r;
}
