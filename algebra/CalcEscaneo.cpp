// The scanning tools of the calculator: a text is cut into tokens once by the
// scanning lexer, and then read as a fraction, as a list of terms or as a
// list of factors, always at parenthesis depth 0.

#include "algebra/CalcInterno.h"
#include "algebra/Parentesis.h"
#include "lang/Caracteres.h"
#include "lang/ConvierteNumero.h"
#include "lang/Cp1252.h"
#include "lang/Errores.h"

std::string_view MotorCalc::Escaneo::Trozo(int t0, int t1) const {
  if (t0 >= t1)
    return texto.substr(t0 < static_cast<int>(toks.size()) ? toks[t0].ini : texto.size(), 0);
  return texto.substr(toks[t0].ini, toks[t1 - 1].fin - toks[t0].ini);
}

// Sums over a common denominator can stay moderate in size and yet take
// very long: the work is counted, not the size.
void MotorCalc::Trabaja(std::size_t operaciones) {
  trabajo_ += operaciones;
  if (trabajo_ > kMaxTrabajo) throw ErrorMotor(ErrAritmetica::TextoExcesivo);
}

MotorCalc::Escaneo MotorCalc::Escanea(std::string_view texto) {
  Trabaja(1 + texto.size() / 256);
  auto sitio = escaneos_.find(texto);
  if (sitio == escaneos_.end()) {
    sitio = escaneos_.try_emplace(std::string(texto)).first;
    sitio->second.toks.reserve(texto.size() / 2 + 2); // most tokens are one or two bytes
    lexS_.BufferBytes(sitio->first);
    for (int tipo = lexS_.SgtToken(); tipo != kFA; tipo = lexS_.SgtToken()) {
      const int fin = lexS_.PtrBuffer();
      sitio->second.toks.push_back(Token{fin - lexS_.LongLex(), fin, tipo});
    }
    Trabaja(sitio->second.toks.size());
  }
  return Escaneo{sitio->first, sitio->second.toks, sitio->second};
}

// Exactly one number token: "-2" and 2*3 are not numbers.
bool MotorCalc::EsNumero(std::string_view texto) {
  if (texto.empty() || !(EsDigito(static_cast<unsigned char>(texto[0])) || texto[0] == '.'))
    return false; // what the lexer would read as no number at all
  const Escaneo e = Escanea(texto);
  return e.toks.size() == 1 && e.toks[0].tipo == kNum;
}

int MotorCalc::BuscaOp(const Escaneo& e, unsigned ops, int desde, int hasta) {
  const int n = hasta < 0 ? static_cast<int>(e.toks.size()) : hasta;
  int nivel = 0;
  for (int i = desde; i < n; ++i) {
    const int tipo = e.toks[i].tipo;
    if (tipo == kAbre)
      ++nivel;
    else if (tipo == kCierra)
      --nivel;
    else if (nivel == 0 && tipo <= kPotencia && (ops & Op(tipo))) {
      const bool signo = (tipo == kMas || tipo == kMenos) && i > 0 &&
                         (e.toks[i - 1].tipo == kPor || e.toks[i - 1].tipo == kEntre ||
                          e.toks[i - 1].tipo == kPotencia);
      if (!signo) return i;
    }
  }
  return -1;
}

bool MotorCalc::TieneBinario(const Escaneo& e, unsigned ops) {
  int i = BuscaOp(e, ops);
  if (i == 0) i = BuscaOp(e, ops, 1); // a leading sign: token 1 is still outside parentheses
  return i > 0;
}

// Splits at the first "/" outside parentheses; each side loses the
// parentheses that enclose it whole, so that "(a+b)/c" gives a+b over c,
// unless what they enclose is itself a quotient: "(a/b)/c" keeps "(a/b)" as
// its numerator, which is no fraction. A quotient wholly in parentheses, as a
// power brings back its base "(x/y)", is a fraction too.
bool MotorCalc::Fraccion(const Escaneo& e, std::string_view& num, std::string_view& den) {
  const int barra = BuscaOp(e, Op(kEntre));
  if (barra < 0) {
    const std::string_view dentro = SinParentesis(e.texto);
    return dentro.size() != e.texto.size() && Fraccion(Escanea(dentro), num, den);
  }
  num = LadoDeFraccion(e.Trozo(0, barra));
  den = LadoDeFraccion(e.Trozo(barra + 1, static_cast<int>(e.toks.size())));
  return true;
}

std::string_view MotorCalc::LadoDeFraccion(std::string_view lado) {
  const std::string_view dentro = SinParentesis(lado);
  if (dentro.size() == lado.size() || BuscaOp(Escanea(dentro), Op(kEntre)) < 0) return dentro;
  return lado;
}

namespace {

bool EsSigno(int tipo) { return tipo == MotorCalc::kMas || tipo == MotorCalc::kMenos; }

} // namespace

// The terms of a text: the pieces between the "+" and "-" operators outside
// parentheses. A run of signs at the start of a term gives its sign; a sign
// that leads a factor ("2*-x") is folded into the term's sign too.
const std::vector<MotorCalc::Termino>& MotorCalc::Terminos(const Escaneo& e) {
  std::vector<Termino>& terminos = e.datos.terminos;
  if (e.datos.conTerminos) return terminos;
  e.datos.conTerminos = true;
  const int n = static_cast<int>(e.toks.size());
  int i = 0;
  while (i < n) {
    bool negativo = false;
    for (; i < n && EsSigno(e.toks[i].tipo); ++i)
      if (e.toks[i].tipo == kMenos) negativo = !negativo;
    const int ini = i;
    int fin = BuscaOp(e, Op(kMas) | Op(kMenos), ini); // toks[ini] is no sign
    if (fin < 0) fin = n;

    Termino t{negativo, e.Trozo(ini, fin), 1.0, {}, negativo, ini, fin, {}, false};
    LeeFactores(e, ini, fin, t);
    if (t.negativo) t.coef = -t.coef;
    terminos.push_back(std::move(t));
    i = fin;
  }
  return terminos;
}

// The factors of the term in tokens [ini, fin): the pieces between "*" (or
// "·") outside parentheses. Plain numbers multiply into the coefficient;
// every other factor is split into base and exponent.
void MotorCalc::LeeFactores(const Escaneo& e, int ini, int fin, Termino& t) {
  int nivel = 0;
  for (int f0 = ini, k = ini; k <= fin; ++k) {
    const int tipo = k < fin ? e.toks[k].tipo : kPor;
    if (tipo == kAbre)
      ++nivel;
    else if (tipo == kCierra)
      --nivel;
    if (k < fin && (tipo != kPor || nivel != 0)) continue;
    int a = f0;
    for (; a < k && EsSigno(e.toks[a].tipo); ++a)
      if (e.toks[a].tipo == kMenos) t.negativo = !t.negativo;
    f0 = k + 1;
    if (a == k) continue; // an empty factor cannot come from a parsed text
    if (k - a == 1 && e.toks[a].tipo == kNum) {
      t.coef *= LeeNumero(e.Trozo(a, k));
      continue;
    }
    Factor f{e.Trozo(a, k), e.Trozo(a, k), {}, {}, "1", a, k};
    // A factor holding a "/" is a base as a whole: its "^" may belong to
    // the numerator only.
    if (BuscaOp(e, Op(kEntre), a, k) < 0) {
      const int sombrero = BuscaOp(e, Op(kPotencia), a, k);
      if (sombrero >= 0) {
        f.base = e.Trozo(a, sombrero);
        f.exp = e.Trozo(sombrero + 1, k);
        f.claveExp = EnMayusculas(SinParentesis(f.exp));
      }
    }
    f.clave = EnMayusculas(SinParentesis(f.base));
    t.lit.push_back(std::move(f));
  }
}
