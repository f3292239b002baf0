// Writing a sum together with its scan. Every term of a sum comes from a
// scanned text, so its tokens, its body and its factors are known: the sum's
// scan is put together from them instead of lexing the sum again. What is put
// together is exactly what a scan of the written text reads, including its
// quirks (a term written "-2*-x" reads as positive).

#include <cstdio>
#include <cstdlib>

#include "algebra/CalcInterno.h"
#include "algebra/TextoNumero.h"
#include "lang/ConvierteNumero.h"

void MotorCalc::Redaccion::Reserva(std::size_t bytes, std::size_t tokens, std::size_t cuantos) {
  texto.reserve(bytes);
  toks.reserve(tokens);
  terminos.reserve(cuantos);
  factores.reserve(2 * cuantos);
}

void MotorCalc::Redaccion::Operador(char c, int tipo) {
  const int en = static_cast<int>(texto.size());
  toks.push_back(Token{en, en + 1, tipo});
  texto += c;
}

void MotorCalc::Redaccion::Copia(const Escaneo& e, int t0, int t1) {
  if (t0 >= t1) return;
  const int desde = e.toks[t0].ini;
  const int corrimiento = static_cast<int>(texto.size()) - desde;
  for (int i = t0; i < t1; ++i)
    toks.push_back(Token{e.toks[i].ini + corrimiento, e.toks[i].fin + corrimiento, e.toks[i].tipo});
  texto += e.texto.substr(desde, e.toks[t1 - 1].fin - desde);
}

// As Une writes "-" + body for a negative term and body after "+" for the
// others. A scan of that reads the run's sign, and then flips it once more
// for each signed factor in the body, as it did in the source: so the copy
// reads with the source's run sign.
void MotorCalc::Redaccion::TerminoCopiado(const Escaneo& e, const Termino& t) {
  if (t.negativo)
    Operador('-', kMenos);
  else if (!texto.empty())
    Operador('+', kMas);
  const double absoluto = t.negativo ? -t.coef : t.coef;
  Colocado c{&t,
             t.negativoDelSigno,
             t.negativo,
             0,
             static_cast<int>(texto.size()),
             0,
             static_cast<int>(toks.size()),
             0,
             factores.size()};
  c.coef = c.negativo ? -absoluto : absoluto;
  Copia(e, t.t0, t.t1);
  c.cuerpoFin = static_cast<int>(texto.size());
  c.t1 = static_cast<int>(toks.size());
  for (const Factor& f : t.lit)
    factores.push_back(Lugar{c.cuerpoIni + static_cast<int>(f.texto.data() - t.cuerpo.data()),
                             c.t0 + (f.t0 - t.t0)});
  terminos.push_back(c);
}

// As EscribeTermino writes it: the coefficient, unless it is 1 or -1 before
// factors, then the factors joined by "*". The coefficient is read back from
// its 15 digits, as a scan of the text reads it.
void MotorCalc::Redaccion::TerminoNuevo(const Escaneo& e, const Termino& t, double coef) {
  const bool conNumero = t.lit.empty() || (coef != 1 && coef != -1);
  const std::string numero = conNumero ? TextoNumero(coef) : std::string();
  const bool negativo = conNumero ? numero.front() == '-' : coef == -1;
  if (negativo)
    Operador('-', kMenos);
  else if (!texto.empty())
    Operador('+', kMas);
  Colocado c{&t,
             negativo,
             negativo,
             coef,
             static_cast<int>(texto.size()),
             0,
             static_cast<int>(toks.size()),
             0,
             factores.size()};
  if (conNumero) {
    const std::string_view cifras = std::string_view(numero).substr(negativo ? 1 : 0);
    const int en = static_cast<int>(texto.size());
    toks.push_back(Token{en, en + static_cast<int>(cifras.size()), kNum});
    texto += cifras;
    c.coef = negativo ? -LeeNumero(cifras) : LeeNumero(cifras);
  }
  for (const Factor& f : t.lit) {
    if (static_cast<int>(texto.size()) != c.cuerpoIni) Operador('*', kPor);
    factores.push_back(Lugar{static_cast<int>(texto.size()), static_cast<int>(toks.size())});
    Copia(e, f.t0, f.t1);
  }
  c.cuerpoFin = static_cast<int>(texto.size());
  c.t1 = static_cast<int>(toks.size());
  terminos.push_back(c);
}

void MotorCalc::GuardaEscaneo(Redaccion& r) {
  auto [sitio, nuevo] = escaneos_.try_emplace(r.texto);
  if (!nuevo) return;
  const std::string_view texto = sitio->first;
  Escaneado& datos = sitio->second;
  datos.toks = std::move(r.toks);
  auto mueve = [&](std::string_view vista, std::string_view desde, int a) {
    if (vista.data() == nullptr) return vista;
    return texto.substr(static_cast<std::size_t>(a + (vista.data() - desde.data())), vista.size());
  };
  for (const Redaccion::Colocado& c : r.terminos) {
    const Termino& fuente = *c.fuente;
    Termino t{c.negativo,
              texto.substr(static_cast<std::size_t>(c.cuerpoIni),
                           static_cast<std::size_t>(c.cuerpoFin - c.cuerpoIni)),
              c.coef,
              {},
              c.negativoDelSigno,
              c.t0,
              c.t1,
              fuente.claveLit,
              fuente.conClave};
    t.lit.reserve(fuente.lit.size());
    for (std::size_t i = 0; i < fuente.lit.size(); ++i) {
      const Factor& f = fuente.lit[i];
      const Redaccion::Lugar lugar = r.factores[c.primerFactor + i];
      Factor g = f;
      g.texto = mueve(f.texto, f.texto, lugar.ini);
      g.base = mueve(f.base, f.texto, lugar.ini);
      g.exp = mueve(f.exp, f.texto, lugar.ini);
      g.t0 = lugar.t0;
      g.t1 = lugar.t0 + (f.t1 - f.t0);
      t.lit.push_back(std::move(g));
    }
    datos.terminos.push_back(std::move(t));
  }
  datos.conTerminos = true;
#ifndef NDEBUG
  CompruebaEscaneo(sitio->first, datos);
#endif
}

void MotorCalc::CompruebaEscaneo(const std::string& texto, const Escaneado& hecho) {
  Escaneado leido;
  lexS_.BufferBytes(texto);
  for (int tipo = lexS_.SgtToken(); tipo != kFA; tipo = lexS_.SgtToken()) {
    const int fin = lexS_.PtrBuffer();
    leido.toks.push_back(Token{fin - lexS_.LongLex(), fin, tipo});
  }
  bool igual = leido.toks.size() == hecho.toks.size();
  for (std::size_t i = 0; igual && i < leido.toks.size(); ++i)
    igual = leido.toks[i].ini == hecho.toks[i].ini && leido.toks[i].fin == hecho.toks[i].fin &&
            leido.toks[i].tipo == hecho.toks[i].tipo;
  if (igual) {
    const auto& terminos = Terminos(Escaneo{texto, leido.toks, leido});
    igual = terminos.size() == hecho.terminos.size();
    for (std::size_t i = 0; igual && i < terminos.size(); ++i) {
      const Termino &a = terminos[i], &b = hecho.terminos[i];
      igual = a.negativo == b.negativo && a.negativoDelSigno == b.negativoDelSigno &&
              a.cuerpo == b.cuerpo && a.cuerpo.data() == b.cuerpo.data() && a.coef == b.coef &&
              a.t0 == b.t0 && a.t1 == b.t1 && a.lit.size() == b.lit.size();
      for (std::size_t j = 0; igual && j < a.lit.size(); ++j) {
        const Factor &f = a.lit[j], &g = b.lit[j];
        igual = f.texto.data() == g.texto.data() && f.texto == g.texto &&
                f.base.data() == g.base.data() && f.base == g.base && f.exp == g.exp &&
                f.clave == g.clave && f.claveExp == g.claveExp && f.t0 == g.t0 && f.t1 == g.t1;
      }
    }
  }
  if (!igual) {
    std::fprintf(stderr, "La suma escrita \"%s\" no se lee como se escribió.\n", texto.c_str());
    std::abort();
  }
}
