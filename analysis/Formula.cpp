#include "analysis/Formula.h"

#include <sstream>

#include "analysis/EscribeMirkal.h"

using namespace GiNaC;

namespace {

Formula Texto(const std::string& t, bool cursiva = false) {
  return {Formula::Texto, t, cursiva, {}};
}
Formula Fila(std::vector<Formula> hijos) { return {Formula::Fila, "", false, std::move(hijos)}; }
Formula Entre(Formula f) { return {Formula::Parentesis, "", false, {std::move(f)}}; }

std::string Numero(const numeric& n) {
  std::ostringstream o;
  o << n;
  return o.str();
}

// The function's name as the language writes it: the name in front of "(".
std::string NombreDe(const ex& llamada) {
  const std::string t = EnMirkal(llamada);
  return t.substr(0, t.find('('));
}

Formula Hace(const ex& e);

// Parentheses around a sum, or a negative number, inside a product or a power.
Formula Factor(const ex& e) {
  const bool suma = is_a<add>(e) || (is_a<numeric>(e) && ex_to<numeric>(e).is_negative());
  return suma ? Entre(Hace(e)) : Hace(e);
}

Formula Hace(const ex& e) {
  if (is_a<numeric>(e)) {
    const numeric n = ex_to<numeric>(e);
    if (!n.is_rational() || n.is_integer()) return Texto(Numero(n));
    Formula q{
        Formula::Fraccion, "", false, {Texto(Numero(abs(n.numer()))), Texto(Numero(n.denom()))}};
    return n.is_negative() ? Fila({Texto("−"), q}) : q;
  }
  if (is_a<symbol>(e)) return Texto(ex_to<symbol>(e).get_name(), true);
  if (is_a<constant>(e)) return Texto("π", true);
  if (is_a<add>(e)) {
    std::vector<Formula> fila;
    bool primero = true;
    for (const ex& t : TerminosEnOrden(e)) {
      const bool menos = (is_a<numeric>(t) && ex_to<numeric>(t).is_negative()) ||
                         (is_a<mul>(t) && is_a<numeric>(t.op(t.nops() - 1)) &&
                          ex_to<numeric>(t.op(t.nops() - 1)).is_negative());
      if (!primero || menos) fila.push_back(Texto(menos ? (primero ? "−" : " − ") : " + "));
      primero = false;
      fila.push_back(Hace(menos ? -t : t));
    }
    return Fila(fila);
  }
  if (is_a<mul>(e)) {
    std::vector<Formula> arriba, abajo;
    numeric coef(1);
    for (std::size_t i = 0; i < e.nops(); ++i) {
      const ex f = e.op(i);
      if (is_a<numeric>(f))
        coef *= ex_to<numeric>(f);
      else if (is_a<power>(f) && is_a<numeric>(f.op(1)) && ex_to<numeric>(f.op(1)).is_negative())
        abajo.push_back(Factor(pow(f.op(0), -f.op(1))));
      else
        arriba.push_back(Factor(f));
    }
    const numeric a = abs(coef);
    if (a.is_rational()) {
      if (!a.numer().is_equal(1) || arriba.empty())
        arriba.insert(arriba.begin(), Texto(Numero(a.numer())));
      if (!a.denom().is_equal(1)) abajo.insert(abajo.begin(), Texto(Numero(a.denom())));
    } else {
      arriba.insert(arriba.begin(), Texto(Numero(a)));
    }
    // Over or under a bar a lone sum needs no parentheses.
    const auto solo = [](const std::vector<Formula>& v) {
      if (v.size() == 1 && v.front().tipo == Formula::Parentesis) return v.front().hijos.front();
      return v.size() == 1 ? v.front() : Fila(v);
    };
    Formula cuerpo = arriba.size() == 1 ? arriba.front() : Fila(arriba);
    if (!abajo.empty()) cuerpo = {Formula::Fraccion, "", false, {solo(arriba), solo(abajo)}};
    return coef.is_negative() ? Fila({Texto("−"), cuerpo}) : cuerpo;
  }
  if (is_a<power>(e)) {
    const ex exponente = e.op(1);
    if (is_a<numeric>(exponente) && ex_to<numeric>(exponente).is_negative())
      return {Formula::Fraccion, "", false, {Texto("1"), Hace(pow(e.op(0), -exponente))}};
    if (exponente.is_equal(numeric(1, 2))) return {Formula::Raiz, "", false, {Hace(e.op(0))}};
    const bool atomo = is_a<symbol>(e.op(0)) || is_a<constant>(e.op(0)) ||
                       e.op(0).is_equal(exp(ex(1))) ||
                       (is_a<numeric>(e.op(0)) && ex_to<numeric>(e.op(0)).is_pos_integer());
    return {Formula::Potencia,
            "",
            false,
            {atomo ? Hace(e.op(0)) : Entre(Hace(e.op(0))), Hace(exponente)}};
  }
  if (is_a<function>(e)) {
    const function& f = ex_to<function>(e);
    if (f.get_name() == "exp")
      return f.op(0).is_equal(1)
                 ? Texto("e", true)
                 : Formula{Formula::Potencia, "", false, {Texto("e", true), Hace(f.op(0))}};
    return Fila({Texto(NombreDe(e)), Entre(Hace(f.op(0)))});
  }
  return Texto(EnMirkal(e));
}

} // namespace

Formula EnFormula(const ex& e) { return Hace(e); }
