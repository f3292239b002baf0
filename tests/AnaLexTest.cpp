// The lexer as a client sees it (tests/casos/lexico.txt): its own class
// codes, a small vocabulary, and the token stream, positions, states and
// warnings that come out of it.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Casos.h"
#include "lang/AnaLex.h"
#include "lang/Aviso.h"

namespace {

using prueba::Texto;

// Class codes of this client, apart from every keyword and operator code.
enum : int { kCom = 1, kCad, kNum, kId, kPC, kOpr, kFL, kFA, kDesc };
enum : int { kSin = 20, kE, kPi, kAño };
enum : int { kMas = 30, kMenos, kPor, kMayor, kIgual, kMenor, kMayorIgual, kMenorIgual, kDistinto };
const std::map<int, std::string> kNombres = {
    {kCom, "com"}, {kOpr, "opr"},   {kCad, "cad"},       {kNum, "num"},       {kId, "id"},
    {kFL, "fl"},   {kDesc, "desc"}, {kSin, "sin"},       {kE, "e"},           {kPi, "pi"},
    {kAño, "año"}, {kMas, "+"},     {kMenos, "-"},       {kPor, "*"},         {kMayor, ">"},
    {kIgual, "="}, {kMenor, "<"},   {kMayorIgual, ">="}, {kMenorIgual, "<="}, {kDistinto, "<>"}};
// Longer operators come both before and after their prefixes: the longest
// match must not depend on the order of registration.
const std::pair<int, const char*> kOperadores[] = {
    {kMas, "+"},   {kMenos, "-"},       {kPor, "*"},         {kPor, "·"},
    {kMayor, ">"}, {kMayorIgual, ">="}, {kMayorIgual, "=>"}, {kIgual, "="},
    {kMenor, "<"}, {kMenorIgual, "<="}, {kDistinto, "<>"}};
const std::string kAvisoPila = ".AnaLex|No hay estados en la pila del analizador léxico.";

class Lexico : public prueba::TablaDeCasos {
protected:
  void SetUp() override {
    FijaManejadorAviso([this](const std::string& origen, const std::string& texto) {
      avisos += (avisos.empty() ? "" : "\n") + origen + "|" + texto;
    });
    lex.IndCom(kCom), lex.IndCad(kCad), lex.IndNum(kNum), lex.IndId(kId), lex.IndPC(kPC);
    lex.IndOpr(kOpr), lex.IndFL(kFL), lex.IndFA(kFA), lex.IndDesc(kDesc);
    lex.AñadePC(kSin, "Sin"), lex.AñadePC(kE, "e"), lex.AñadePC(kPi, "PI");
    for (auto [codigo, texto] : kOperadores)
      lex.AñadeOpr(codigo, texto);
    ASSERT_EQ(avisos, "");
  }
  void TearDown() override { FijaManejadorAviso(nullptr); }

  void Opciones(const std::string& opciones) {
    std::istringstream in(opciones);
    for (std::string o; in >> o;)
      if (o == "coma")
        lex.PuntoDec(",");
      else if (o == "sinfl")
        lex.IgnFL(true);
      else if (o == "concom")
        lex.IgnCom(false);
      else if (o == "año")
        lex.AñadePC(kAño, "Año");
      else if (o == "codigos")
        lex.IndId(500), lex.IndNum(501), lex.IndFA(fa = -7);
      else
        ASSERT_EQ(o, "-") << "unknown option";
  }

  // Reads the whole text: "class:lexeme" of each token before the end of
  // file, and in `pos` the line and column after every token, the end too.
  std::vector<std::string> Tokens(const std::string& texto) {
    lex.Buffer(texto);
    std::vector<std::string> leidos;
    pos.clear();
    for (std::size_t i = 0; i <= texto.size(); ++i) {
      const int codigo = lex.SgtToken();
      pos += (pos.empty() ? "" : " ") + std::to_string(lex.Lin()) + ":" + std::to_string(lex.Col());
      if (codigo == fa) {
        EXPECT_EQ(lex.Lex(), "");
        EXPECT_EQ(lex.SgtToken(), fa) << "reading past the end";
        return leidos;
      }
      const auto n = kNombres.find(codigo);
      leidos.push_back((n != kNombres.end() ? n->second : std::to_string(codigo)) + ":" +
                       lex.Lex());
    }
    ADD_FAILURE() << "no end of file";
    return leidos;
  }

  std::string Foto() {
    return std::to_string(lex.PtrBuffer()) + " " + std::to_string(lex.Lin()) + ":" +
           std::to_string(lex.Col()) + " " + lex.Lex() + "|" + lex.LexCad() + " " +
           std::to_string(lex.UltInd()) + "/" + std::to_string(lex.IndCls()) + " " +
           std::to_string(lex.AntInd());
  }

  void Pasos(const std::string& pasos) {
    std::istringstream in(pasos);
    for (std::string p; in >> p;)
      if (p.starts_with("B=")) {
        lex.Buffer(p.substr(2));
      } else if (p[1] == ':') { // a look-ahead and its answer, "V:id=1"
        const auto igual = p.find('=');
        const auto n = std::find_if(kNombres.begin(), kNombres.end(), [&](const auto& par) {
          return par.second == p.substr(2, igual - 2);
        });
        ASSERT_NE(n, kNombres.end()) << p;
        const bool si = p[0] == 'V'   ? lex.VieneToken(n->first)
                        : p[0] == 'C' ? lex.VieneIndCls(n->first)
                                      : lex.AvanzaToken(n->first);
        EXPECT_EQ(si, p[igual + 1] == '1') << p;
      } else {
        for (int i = std::stoi(p.substr(1)); i > 0; --i)
          p[0] == 'S' ? static_cast<void>(lex.SgtToken()) : lex.Restaura();
      }
  }

  AnaLex lex;
  std::string avisos, pos;
  int fa = kFA;
};

TEST_P(Lexico, Caso) {
  const prueba::Caso& c = GetParam();
  Opciones(c[1]);
  const std::string& tipo = c[0];
  const std::string texto = Texto(c[2]);
  const std::string& esperados = c[c.size() - 1]; // the warnings, where a line has them
  if (tipo == "tokens") {
    EXPECT_EQ(Tokens(texto), std::vector<std::string>(c.campos.begin() + 3, c.campos.end()));
    return;
  }
  if (tipo == "cadena") {
    Tokens(texto);
    EXPECT_EQ(lex.LexCad(), Texto(c[3]));
    return;
  }
  if (tipo == "posiciones") {
    Tokens(texto);
    EXPECT_EQ(pos, c[3]);
    return;
  }
  if (tipo == "estado") {
    lex.Buffer(texto);
    Pasos(c[3]);
    EXPECT_EQ(Foto(), c[4]);
  } else if (tipo == "separador") {
    lex.PuntoDec(texto);
    EXPECT_EQ(lex.PuntoDec(), c[3]);
  } else {
    // A refused word or operator never reads as code 99, an accepted one
    // does, even between other tokens.
    tipo == "palabra" ? lex.AñadePC(99, texto) : lex.AñadeOpr(99, texto);
    ASSERT_TRUE(tipo == "palabra" || tipo == "operador") << tipo;
    const std::string entre = tipo == "palabra" ? " " : "";
    const auto leidos = Tokens("x" + entre + texto + entre + "y");
    const bool aceptado = leidos == std::vector<std::string>{"id:x", "99:" + texto, "id:y"};
    EXPECT_EQ(aceptado, esperados == "(ninguno)") << testing::PrintToString(leidos);
  }
  EXPECT_EQ(avisos, esperados == "(ninguno)" ? "" : esperados);
}

INSTANTIATE_TEST_SUITE_P(Casos, Lexico, prueba::Casos("lexico.txt"), prueba::NombreDeCaso);

} // namespace
