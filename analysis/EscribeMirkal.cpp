#include "analysis/EscribeMirkal.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <sstream>
#include <tuple>
#include <vector>

#include "analysis/ExpresionGinac.h"

using namespace GiNaC;

namespace {

// A written piece and how tightly it binds: a sum (or anything with a
// leading sign) 1, a product or quotient 2, a power 3, a name or number 4.
struct Pieza {
  std::string texto;
  int fuerza;
  int grado = 0; // in a sum, terms of higher degree go first
};

// What changes between Mirkal's language and LaTeX; the structure is one.
struct Estilo {
  bool latex;
  std::string Parentesis(const std::string& t) const {
    return latex ? "\\left(" + t + "\\right)" : "(" + t + ")";
  }
  std::string Por() const { return latex ? " " : "*"; }
  std::string Cociente(const std::string& arriba, const Pieza& abajo, bool varios) const {
    if (latex) return "\\frac{" + arriba + "}{" + abajo.texto + "}";
    return arriba + "/" + (varios || abajo.fuerza < 3 ? Parentesis(abajo.texto) : abajo.texto);
  }
  std::string Exponente(const Pieza& base, const Pieza& exponente) const {
    if (latex) return Entre(base, 4) + "^{" + exponente.texto + "}";
    return Entre(base, 4) + "^" + Entre(exponente, 4);
  }
  std::string Entre(const Pieza& p, int minima) const {
    return p.fuerza < minima ? Parentesis(p.texto) : p.texto;
  }
};

// The language's functions and their LaTeX, by GiNaC's names.
const std::map<std::string, std::pair<std::string, std::string>>& Nombres() {
  static const std::map<std::string, std::pair<std::string, std::string>> nombres = {
      {"sin", {"Sin", "\\sin"}},
      {"cos", {"Cos", "\\cos"}},
      {"tan", {"Tg", "\\tan"}},
      {"log", {"Ln", "\\ln"}},
      {"asin", {"ArcSin", "\\arcsin"}},
      {"acos", {"ArcCos", "\\arccos"}},
      {"atan", {"ArcTg", "\\arctan"}},
      {"sinh", {"SinH", "\\sinh"}},
      {"cosh", {"CosH", "\\cosh"}},
      {"tanh", {"TgH", "\\tanh"}},
      {"asinh", {"ArcSinH", "\\operatorname{arcsinh}"}},
      {"acosh", {"ArcCosH", "\\operatorname{arccosh}"}},
      {"atanh", {"ArcTgH", "\\operatorname{arctanh}"}},
      {"ArcSec", {"ArcSec", "\\operatorname{arcsec}"}},
      {"ArcCosec", {"ArcCosec", "\\operatorname{arccsc}"}}};
  return nombres;
}

// A term's degree in all its variables together.
int Grado(const ex& t) {
  if (is_a<symbol>(t)) return 1;
  if (is_a<power>(t) && is_a<symbol>(t.op(0)) && is_a<numeric>(t.op(1)) &&
      ex_to<numeric>(t.op(1)).is_integer())
    return ex_to<numeric>(t.op(1)).to_int();
  int grado = 0;
  if (is_a<mul>(t))
    for (std::size_t i = 0; i < t.nops(); ++i)
      grado += Grado(t.op(i));
  return grado;
}

class Escritor {
public:
  explicit Escritor(bool latex) : estilo_{latex} {}

  Pieza Escribe(const ex& e) const {
    if (is_a<numeric>(e)) return DeNumero(ex_to<numeric>(e));
    if (is_a<symbol>(e)) return {ex_to<symbol>(e).get_name(), 4};
    if (is_a<constant>(e)) return {estilo_.latex ? "\\pi" : "Pi", 4};
    if (is_a<add>(e)) return DeSuma(e);
    if (is_a<mul>(e)) return DeProducto(e);
    if (is_a<power>(e)) return DePotencia(e);
    if (is_a<function>(e)) return DeFuncion(ex_to<function>(e));
    throw ErrorAnalisis("El resultado tiene una forma que el lenguaje no escribe");
  }

private:
  static std::string Numero(const numeric& n) {
    std::ostringstream o;
    o << n;
    return o.str();
  }

  Pieza DeNumero(const numeric& n) const {
    if (n.is_integer() || !n.is_rational()) return {Numero(n), n.is_negative() ? 1 : 4};
    const numeric absoluto = abs(n);
    const std::string signo = n.is_negative() ? "-" : "";
    if (estilo_.latex)
      return {signo + "\\frac{" + Numero(absoluto.numer()) + "}{" + Numero(absoluto.denom()) + "}",
              n.is_negative() ? 1 : 4};
    return {Numero(n), n.is_negative() ? 1 : 2};
  }

  Pieza DeFuncion(const function& f) const {
    const std::string nombre = f.get_name();
    const Pieza argumento = Escribe(f.op(0));
    if (nombre == "exp") {
      if (f.op(0).is_equal(1)) return {"e", 4};
      return {estilo_.Exponente({"e", 4}, argumento), 3};
    }
    const auto sitio = Nombres().find(nombre);
    if (sitio == Nombres().end())
      throw ErrorAnalisis("El resultado usa una función (" + nombre + ") que el lenguaje no tiene");
    return {(estilo_.latex ? sitio->second.second : sitio->second.first) +
                estilo_.Parentesis(argumento.texto),
            4};
  }

  // GiNaC keeps the terms of a sum and the factors of a product in an order
  // of its own that depends on when each symbol was made; they are written in
  // an order of their text instead, so that the same result always reads
  // alike, a sum's numbers last.
  static void Ordena(std::vector<Pieza>& piezas, bool numerosAlFinal) {
    const auto clave = [&](const Pieza& p) {
      const std::string sinSigno =
          !p.texto.empty() && p.texto[0] == '-' ? p.texto.substr(1) : p.texto;
      const bool numero = !sinSigno.empty() &&
                          std::isdigit(static_cast<unsigned char>(sinSigno[0])) &&
                          sinSigno.find_first_not_of("0123456789/.") == std::string::npos;
      return std::tuple(numerosAlFinal && numero, -p.grado, sinSigno);
    };
    std::stable_sort(piezas.begin(), piezas.end(),
                     [&](const Pieza& a, const Pieza& b) { return clave(a) < clave(b); });
  }

  Pieza DeSuma(const ex& e) const {
    std::string texto;
    for (const ex& termino : TerminosEnOrden(e)) {
      const Pieza t = Escribe(termino);
      if (texto.empty())
        texto = t.texto;
      else if (!t.texto.empty() && t.texto[0] == '-')
        texto += " - " + t.texto.substr(1);
      else
        texto += " + " + t.texto;
    }
    return {texto, 1};
  }

  std::string Junta(std::vector<Pieza> piezas) const {
    Ordena(piezas, false);
    std::string texto;
    for (const Pieza& p : piezas)
      texto += (texto.empty() ? "" : estilo_.Por()) + estilo_.Entre(p, 2);
    return texto;
  }

  // Factors with a negative exponent go under the bar; the numeric
  // coefficient's sign leads. A fraction before other factors is written
  // as one in the language (3/4*x), which reads left to right as it should.
  Pieza DeProducto(const ex& e) const {
    numeric coef(1);
    std::vector<Pieza> arriba, abajo;
    for (std::size_t i = 0; i < e.nops(); ++i) {
      const ex f = e.op(i);
      if (is_a<numeric>(f))
        coef *= ex_to<numeric>(f);
      else if (is_a<power>(f) && is_a<numeric>(f.op(1)) && ex_to<numeric>(f.op(1)).is_negative())
        abajo.push_back(Escribe(pow(f.op(0), -f.op(1))));
      else
        arriba.push_back(Escribe(f));
    }
    const bool negativo = coef.is_negative();
    const numeric absoluto = abs(coef);
    const bool fraccionDelante =
        !estilo_.latex && absoluto.is_rational() && !absoluto.is_integer() && !arriba.empty();
    std::string numerador;
    if (fraccionDelante) {
      numerador = Numero(absoluto) + estilo_.Por();
    } else if (!absoluto.is_rational()) {
      numerador = Numero(absoluto) + estilo_.Por();
    } else {
      if (!absoluto.numer().is_equal(1) || arriba.empty())
        numerador = Numero(absoluto.numer()) + (arriba.empty() ? "" : estilo_.Por());
      if (!absoluto.denom().is_equal(1)) abajo.push_back({Numero(absoluto.denom()), 4});
    }
    // Over a fraction bar in LaTeX a lone factor needs no parentheses.
    const bool solo = estilo_.latex && numerador.empty() && arriba.size() == 1;
    numerador += solo ? arriba.front().texto : Junta(arriba);
    std::string texto = numerador;
    if (!abajo.empty()) {
      const bool varios = abajo.size() > 1;
      const Pieza debajo = varios ? Pieza{Junta(abajo), 2} : abajo.front();
      texto = estilo_.Cociente(numerador, debajo, varios);
    }
    return {(negativo ? "-" : "") + texto, negativo ? 1 : estilo_.latex && !abajo.empty() ? 4 : 2};
  }

  Pieza DePotencia(const ex& e) const {
    const ex base = e.op(0), exponente = e.op(1);
    if (is_a<numeric>(exponente) && ex_to<numeric>(exponente).is_negative()) {
      const Pieza debajo = Escribe(pow(base, -exponente));
      return {estilo_.Cociente("1", debajo, false), estilo_.latex ? 4 : 2};
    }
    if (estilo_.latex && exponente.is_equal(numeric(1, 2)))
      return {"\\sqrt{" + Escribe(base).texto + "}", 4};
    return {estilo_.Exponente(Escribe(base), Escribe(exponente)), 3};
  }

  Estilo estilo_;
};

} // namespace

std::string EnMirkal(const ex& e) { return Escritor(false).Escribe(e).texto; }

std::vector<ex> TerminosEnOrden(const ex& suma) {
  struct Clave {
    bool numero;
    int grado;
    std::string texto;
    ex termino;
  };
  std::vector<Clave> claves;
  for (std::size_t i = 0; i < suma.nops(); ++i) {
    const ex t = suma.op(i);
    std::string texto = EnMirkal(t);
    if (!texto.empty() && texto[0] == '-') texto.erase(0, 1);
    claves.push_back({is_a<numeric>(t), Grado(t), texto, t});
  }
  std::stable_sort(claves.begin(), claves.end(), [](const Clave& a, const Clave& b) {
    return std::tie(a.numero, b.grado, a.texto) < std::tie(b.numero, a.grado, b.texto);
  });
  std::vector<ex> orden;
  for (const Clave& c : claves)
    orden.push_back(c.termino);
  return orden;
}

std::string EnLatex(const ex& e) { return Escritor(true).Escribe(e).texto; }
