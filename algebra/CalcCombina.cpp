// The combining operations: each receives operand texts that are already
// simplified and returns the simplified text of the combination, so that a
// whole parse is simplified bottom-up in one pass.

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "algebra/CalcInterno.h"
#include "algebra/Parentesis.h"
#include "algebra/Piezas.h"
#include "algebra/TextoNumero.h"
#include "lang/ConvierteNumero.h"
#include "lang/Cp1252.h"
#include "lang/Errores.h"

namespace {

// The sign cleanup of a finished sum.
std::string Limpia(std::string suma) {
  if (suma.empty() || suma == "-0") return "0";
  return suma;
}

std::string Acotado(std::string texto) {
  if (texto.size() > kMaxTexto) throw ErrorMotor(ErrAritmetica::TextoExcesivo);
  return texto;
}

double Finito(double valor) {
  if (!std::isfinite(valor)) throw ErrorMotor(ErrAritmetica::Desbordamiento);
  return valor;
}

bool MismaClave(std::string_view a, std::string_view b) { return a == b; }

bool IgualSinMayusculas(std::string_view a, std::string_view b) {
  return a.size() == b.size() && EnMayusculas(a) == EnMayusculas(b);
}

} // namespace

// ---------------------------------------------------------------------------
// Comparison

namespace {

// Literal parts compared as multisets of (base, exponent).
template <class Factores> bool MismoLiteral(const Factores& a, const Factores& b) {
  if (a.size() != b.size()) return false;
  std::vector<bool> usado(b.size(), false);
  for (const auto& f : a) {
    bool hallado = false;
    for (std::size_t j = 0; j < b.size() && !hallado; ++j) {
      if (!usado[j] && MismaClave(f.clave, b[j].clave) && MismaClave(f.claveExp, b[j].claveExp))
        usado[j] = hallado = true;
    }
    if (!hallado) return false;
  }
  return true;
}

// One key for every ordering of the same factors, so that like terms are
// found by hashing rather than by comparing each term with all the others.
template <class Factores> std::string ClaveLiteral(const Factores& lit) {
  std::vector<std::string> partes;
  partes.reserve(lit.size());
  for (const auto& f : lit)
    partes.push_back(f.clave + '\x01' + f.claveExp);
  std::sort(partes.begin(), partes.end());
  std::string clave;
  for (const std::string& p : partes)
    clave += p + '\x02';
  return clave;
}

} // namespace

bool MotorCalc::EsIgual(std::string_view a, std::string_view b) {
  if (IgualSinMayusculas(a, b)) return true;
  // The quotient rules take fractions apart before they compare: a quotient
  // that reaches here is a factor in parentheses, compared by its text as any
  // factor is.
  const auto &ta = Terminos(Escanea(a)), &tb = Terminos(Escanea(b));
  if (ta.size() != tb.size()) return false;
  std::vector<bool> usado(tb.size(), false);
  for (const Termino& t : ta) {
    bool hallado = false;
    for (std::size_t j = 0; j < tb.size() && !hallado; ++j)
      if (!usado[j] && t.coef == tb[j].coef && MismoLiteral(t.lit, tb[j].lit))
        usado[j] = hallado = true;
    if (!hallado) return false;
  }
  return true;
}

// ---------------------------------------------------------------------------
// Sums

namespace {

// Whether a merged coefficient is zero, or only the rounding noise of the
// additions that made it. Every coefficient has travelled as 15-digit text,
// which is not exact in binary: 0.1+0.2-0.3 leaves 5.6E-17 (one unit in the
// last place, ulp, of 0.3), and two products that agree but were each
// rounded to 15 digits may differ by half a unit of their 15th digit each,
// up to about 23 ulps. A real coefficient can be as small as a unit next to
// a 15-digit whole number: 1E14+1-1E14 leaves 1, which is 64 ulps of 1E14
// after two additions. So up to 24 ulps of the largest addend or partial sum
// per addition is taken as zero, and anything larger is kept.
bool RuidoDeSuma(double coef, double mayor, int sumas) {
  if (coef == 0) return true;
  const double ulp = std::nextafter(mayor, INFINITY) - mayor;
  return std::fabs(coef) <= 24.0 * sumas * ulp;
}

} // namespace

// Merges like terms (equal literal parts) by adding their coefficients; a
// term whose coefficient becomes 0 is dropped, and an untouched term keeps
// its text.
std::string MotorCalc::SumaDeTerminos(std::initializer_list<std::string_view> piezas) {
  struct Acumulado {
    const Termino* termino;
    Escaneo escaneo;    // where the term was read
    double coef, mayor; // the sum, and the largest addend or partial sum
    int sumas;          // additions that made coef
  };
  std::vector<Escaneo> escaneos;
  escaneos.reserve(piezas.size());
  std::size_t terminos = 0, bytes = 0, tokens = 0;
  for (const std::string_view pieza : piezas) {
    escaneos.push_back(Escanea(pieza));
    terminos += Terminos(escaneos.back()).size();
    bytes += escaneos.back().texto.size();
    tokens += escaneos.back().toks.size();
  }
  Trabaja(terminos);
  std::vector<Acumulado> suma;
  suma.reserve(terminos);
  // Like terms are found by their key: by looking through the few of a small
  // sum, by hashing in a large one.
  constexpr std::size_t kSumaPequena = 16;
  std::unordered_map<std::string_view, std::size_t> porLiteral;
  auto lugarDe = [&](const Termino& t) {
    if (terminos <= kSumaPequena) {
      for (std::size_t i = 0; i < suma.size(); ++i)
        if (suma[i].termino->claveLit == t.claveLit) return i;
      return suma.size();
    }
    return porLiteral.try_emplace(t.claveLit, suma.size()).first->second;
  };
  for (const Escaneo& e : escaneos) {
    for (const Termino& t : Terminos(e)) {
      if (!t.conClave) {
        t.claveLit = ClaveLiteral(t.lit);
        t.conClave = true;
      }
      const std::size_t lugar = lugarDe(t);
      if (lugar == suma.size()) {
        suma.push_back({&t, e, t.coef, std::fabs(t.coef), 0});
        continue;
      }
      Acumulado& igual = suma[lugar];
      igual.coef = Finito(igual.coef + t.coef);
      igual.mayor = std::max({igual.mayor, std::fabs(t.coef), std::fabs(igual.coef)});
      ++igual.sumas;
    }
  }
  Redaccion out;
  out.Reserva(bytes + 2 * suma.size(), tokens + 2 * suma.size(), suma.size());
  for (const Acumulado& a : suma) {
    if (RuidoDeSuma(a.coef, a.mayor, a.sumas)) continue;
    if (a.sumas == 0)
      out.TerminoCopiado(a.escaneo, *a.termino);
    else
      out.TerminoNuevo(a.escaneo, *a.termino, a.coef);
  }
  Trabaja(out.texto.size() / 16 + out.factores.size());
  if (out.texto.empty()) return "0";
  if (out.texto.size() <= kMaxTexto) GuardaEscaneo(out);
  return std::move(out.texto);
}

// Brings both operands over one common denominator, so that a sum never
// leaves two fractions side by side.
std::string MotorCalc::SumaFracciones(std::string_view l, std::string_view r, bool resta) {
  // Two plain numbers, as exponents merged in a product mostly are, add at
  // once: their terms would merge into one coefficient just so.
  if (EsNumero(l) && EsNumero(r)) {
    const double a = LeeNumero(l), b = resta ? -LeeNumero(r) : LeeNumero(r);
    const double c = Finito(a + b);
    return RuidoDeSuma(c, std::max({std::fabs(a), std::fabs(b), std::fabs(c)}), 1) ? "0"
                                                                                   : TextoNumero(c);
  }
  const Escaneo el = Escanea(l), er = Escanea(r);
  std::string_view nl = l, dl, nr = r, dr;
  const bool fl = Fraccion(el, nl, dl), fr = Fraccion(er, nr, dr);
  auto suma = [&](std::string_view a, std::string_view b) {
    const std::string negado = resta ? NegExp(b) : std::string();
    return Acotado(SumaDeTerminos({a, resta ? std::string_view(negado) : b}));
  };
  if (fl && fr) {
    if (EsIgual(dl, dr)) return DivExp(suma(nl, nr), dl);
    return DivExp(suma(MultExp(nl, dr), MultExp(nr, dl)), MultExp(dl, dr));
  }
  if (fl) return DivExp(suma(nl, MultExp(r, dl)), dl);
  if (fr) return DivExp(suma(MultExp(l, dr), nr), dr);
  return suma(l, r);
}

std::string MotorCalc::SumaExp(std::string_view l, std::string_view r) {
  return SumaFracciones(l, r, false);
}

std::string MotorCalc::RestaExp(std::string_view l, std::string_view r) {
  return SumaFracciones(l, r, true);
}

// Every term changes sign: the negation of x-y is -x+y.
std::string MotorCalc::NegExp(std::string_view t) {
  const Escaneo e = Escanea(t);
  std::string out;
  for (const Termino& termino : Terminos(e)) {
    std::string pieza = termino.negativo ? "" : "-";
    pieza += termino.cuerpo;
    Une(out, pieza);
  }
  return Limpia(std::move(out));
}

// ---------------------------------------------------------------------------
// Products

// Coefficients multiply; factors with equal bases merge into one whose
// exponent is the sum of theirs.
std::string MotorCalc::ProductoDeTerminos(const Termino& a, const Termino& b) {
  Trabaja(1 + a.lit.size() * b.lit.size());
  struct Mezcla {
    const Factor* factor;
    std::string exp; // the merged exponent, when merged
  };
  std::vector<Mezcla> factores;
  for (const Factor& f : a.lit)
    factores.push_back({&f, {}});
  for (const Factor& f : b.lit) {
    Mezcla* igual = nullptr;
    for (Mezcla& m : factores)
      if (MismaClave(m.factor->clave, f.clave)) {
        igual = &m;
        break;
      }
    if (!igual) {
      factores.push_back({&f, {}});
      continue;
    }
    const std::string_view expA = igual->exp.empty()
                                      ? (igual->factor->exp.empty() ? "1" : igual->factor->exp)
                                      : std::string_view(igual->exp);
    igual->exp = SumaExp(SinParentesis(expA), f.exp.empty() ? "1" : SinParentesis(f.exp));
  }
  std::string texto;
  for (const Mezcla& m : factores) {
    std::string pieza;
    if (m.exp.empty())
      pieza = m.factor->texto;
    else if (m.exp == "0")
      continue;
    else if (m.exp == "1")
      pieza = m.factor->base;
    else
      pieza = PotExp(m.factor->base, m.exp);
    if (!texto.empty()) texto += '*';
    texto += pieza;
  }
  return EscribeTermino(Finito(a.coef * b.coef), texto);
}

// Products of sums are expanded: every term of one by every term of the other.
std::string MotorCalc::ProductoExpandido(std::string_view l, std::string_view r) {
  const Escaneo el = Escanea(l), er = Escanea(r);
  const auto &tl = Terminos(el), &tr = Terminos(er);
  // Refuse before building: the expansion writes every term of one side once
  // for each term of the other.
  if (l.size() * tr.size() + r.size() * tl.size() > kMaxTexto)
    throw ErrorMotor(ErrAritmetica::TextoExcesivo);
  std::string suma;
  for (const Termino& a : tl)
    for (const Termino& b : tr)
      Une(suma, ProductoDeTerminos(a, b));
  return Acotado(SumaDeTerminos({suma.empty() ? "0" : suma}));
}

std::string MotorCalc::MultExp(std::string_view l, std::string_view r) {
  const Escaneo el = Escanea(l), er = Escanea(r);
  std::string_view nl = l, dl, nr = r, dr;
  const bool fl = Fraccion(el, nl, dl), fr = Fraccion(er, nr, dr);
  const std::string num = ProductoExpandido(nl, nr);
  if (fl && fr) return DivExp(num, ProductoExpandido(dl, dr));
  if (fl) return DivExp(num, dl);
  if (fr) return DivExp(num, dr);
  return num;
}

// ---------------------------------------------------------------------------
// Quotients

std::string MotorCalc::DivExp(std::string_view l, std::string_view r) {
  // The operands' own fractions first: (a/b)/(c/d) is (a*d)/(b*c).
  const Escaneo el = Escanea(l), er = Escanea(r);
  std::string_view nl = l, dl, nr = r, dr;
  const bool fl = Fraccion(el, nl, dl), fr = Fraccion(er, nr, dr);
  if (!fl && !fr) return Cociente(l, r);
  const std::string num = fr ? MultExp(nl, dr) : std::string(nl);
  const std::string den = fl ? MultExp(dl, nr) : std::string(nr);
  return Cociente(num, den);
}

// The quotient's rules for one numerator and one denominator, first match wins.
std::string MotorCalc::Cociente(std::string_view num, std::string_view den) {
  if (den == "1") return std::string(num);
  if (den == "-1") return NegExp(num);
  if (den == "0") throw ErrorMotor(ErrCalc::DivisionPorCero);
  if (num == "0") return "0";
  if (calcExpNum_ && EsNumero(den)) {
    const double d = LeeNumero(den);
    if (EsNumero(num)) return TextoNumero(Finito(LeeNumero(num) / d));
    return MultExp(num, TextoNumero(Finito(1 / d)));
  }
  if (EsIgual(num, den)) return "1";
  if (EsIgual(num, NegExp(den))) return "-1";
  const Escaneo en = Escanea(num), ed = Escanea(den);
  std::string out;
  const bool numSuma = TieneBinario(en, Op(kMas) | Op(kMenos));
  const bool denCompuesto = BuscaOp(ed, Op(kMas) | Op(kPor) | Op(kEntre) | Op(kPotencia)) >= 0 ||
                            TieneBinario(ed, Op(kMenos));
  out += numSuma ? "(" + std::string(num) + ")" : std::string(num);
  out += '/';
  out += denCompuesto ? "(" + std::string(den) + ")" : std::string(den);
  return out;
}

// ---------------------------------------------------------------------------
// Powers

std::string MotorCalc::PotExp(std::string_view l, std::string_view r) {
  if (r == "0") return "1";
  if (r == "1") return std::string(l);
  if (l == "0") return "0";
  if (l == "1") return "1";
  if (EsNumero(l) && EsNumero(r)) // computed whether or not CalcExpNum is on
    return TextoNumero(Finito(std::pow(LeeNumero(l), LeeNumero(r))));

  // a. The base and its own exponent. A sum, a product or a quotient is a
  //    base as a whole: in x^2/y the "^" belongs to the numerator only.
  const Escaneo el = Escanea(l);
  const int n = static_cast<int>(el.toks.size());
  int finBase = n;
  std::string_view e = "1";
  if (BuscaOp(el, Op(kMas) | Op(kMenos) | Op(kPor) | Op(kEntre)) < 0) {
    const int sombrero = BuscaOp(el, Op(kPotencia));
    if (sombrero >= 0) {
      finBase = sombrero;
      e = SinParentesis(el.Trozo(sombrero + 1, n));
    }
  }
  // b. (b^e)^r is b^(e*r).
  const std::string exp = e == "1" ? std::string(r) : MultExp(e, r);
  // c. Parentheses where precedence needs them; a bare leading "-" in the
  //    exponent needs none (x^-2).
  std::string base(el.Trozo(0, finBase));
  const unsigned compuesto = Op(kMas) | Op(kPor) | Op(kEntre) | Op(kPotencia);
  if (BuscaOp(el, compuesto | Op(kMenos), 0, finBase) >= 0) base = "(" + base + ")";
  // d.
  if (exp == "0") return "1";
  if (exp == "1") return base;
  const Escaneo ee = Escanea(exp);
  const bool expCompuesto = BuscaOp(ee, compuesto) >= 0 || TieneBinario(ee, Op(kMenos));
  return base + "^" + (expCompuesto ? "(" + exp + ")" : exp);
}
