// Whatever the user types, the lexer must end every byte in some token and
// the checker must answer with a record that points inside the text. Inputs
// come from fixed seeds so that a failure can be replayed. The fuzz targets
// (fuzz/) check the checker on random bytes the same way, and the lexer's
// positions only for bounds: here they are exact.

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

#include "lang/AnaLex.h"
#include "lang/Cp1252.h"
#include "lang/SintaxExp.h"

namespace {

constexpr int kFA = 8;
using Comprobacion = bool (SintaxExp::*)(const std::string&);

const char* Uno(std::mt19937& gen, std::initializer_list<const char*> l) {
  return l.begin()[gen() % l.size()];
}

// Raw bytes, or pieces that steer the text into the lexer's corners: ends of
// line, continuations, literals, comments, exponents, operators split by blanks.
std::string Aleatorio(std::mt19937& gen) {
  const std::size_t n = gen() % 300;
  std::string s;
  for (std::size_t i = 0, crudo = gen() % 2; i < n; i += crudo ? 1 : 3)
    s += crudo ? std::string(1, static_cast<char>(gen()))
               : Uno(gen, {"x",    "año", "Sin", "e",  "1",    ".5",   "2E", "+",  "-",      "3D-",
                           ",",    ".",   "(",   ")",  "^",    "*",    "·",  "/",  "=",      ">",
                           "<",    " ",   "\t",  "\r", "\n",   "\r\n", " _", "_",  "\"",     "'",
                           "\"\"", "ü",   "€",   "中", "\xC3", "\xFF", "%",  "PI", "ArcCtgH"});
  return s;
}

// A well-formed expression with blanks, sign runs and continuations wherever
// the language allows them.
std::string Valida(std::mt19937& gen, int prof = 0) {
  auto b = [&] { return std::string(Uno(gen, {"", "", " ", "\t", " _\r\n "})); };
  auto factor = [&]() -> std::string {
    std::string signos;
    while (gen() % 3 == 0)
      signos += Uno(gen, {"-", "+"}) + b();
    switch (gen() % (prof < 3 ? 4 : 2)) {
    case 0:
      return signos + Uno(gen, {"x", "año", "Ñu", "y_2", "Pi", "E"});
    case 1:
      return signos + Uno(gen, {"2", ".5", "1.5E-3", "7D2", "1E-999"});
    case 2:
      return signos + "(" + b() + Valida(gen, prof + 1) + b() + ")";
    default:
      return signos + Uno(gen, {"sin", "LN"}) + b() + "(" + Valida(gen, prof + 1) + ")";
    }
  };
  std::string s = factor();
  while (gen() % 3 == 0)
    s += b() + Uno(gen, {"+", "-", "*", "·", "/", "^"}) + b() + factor();
  return s;
}

// Reads the text to the end checking that every token passes at least one
// byte, that its Lex is exactly the bytes it passed last, and that Lin and
// Col agree with the ends of line passed so far.
void LeeTodo(AnaLex& lex, const std::string& texto) {
  const std::string bytes = Utf8ACp1252(texto);
  lex.Buffer(texto);
  ASSERT_EQ(Utf8ACp1252(lex.Buffer()), bytes);
  std::size_t lineas = 0, inicio = 0, leido = 0;
  for (int codigo = 0; codigo != kFA;) {
    const int antes = lex.PtrBuffer();
    codigo = lex.SgtToken();
    const auto ptr = static_cast<std::size_t>(lex.PtrBuffer());
    const std::string tok = Utf8ACp1252(lex.Lex());
    ASSERT_TRUE(codigo == kFA ? ptr == bytes.size() && tok.empty() : lex.PtrBuffer() > antes);
    ASSERT_LE(ptr, bytes.size());
    ASSERT_EQ(bytes.substr(ptr - tok.size(), tok.size()), tok);
    for (; leido < ptr; ++leido)
      if (bytes[leido] == '\r')
        ++lineas, inicio = leido + (leido + 1 < bytes.size() && bytes[leido + 1] == '\n' ? 2 : 1);
    ASSERT_EQ(static_cast<std::size_t>(lex.Lin()), lineas);
    ASSERT_EQ(static_cast<std::size_t>(lex.Col()), ptr - inicio);
  }
}

// An accepted text has a normal form that is itself accepted and normal; a
// refused one marks a span inside the text.
void Comprueba(SintaxExp& s, Comprobacion check, const std::string& texto) {
  if ((s.*check)(texto)) {
    const std::string expr = s.Expr();
    ASSERT_EQ(s.ErrNumber(), 0);
    ASSERT_TRUE((s.*check)(expr)) << expr;
    ASSERT_EQ(s.Expr(), expr);
    return;
  }
  ASSERT_NE(s.ErrNumber(), 0);
  ASSERT_FALSE(s.ErrDesc().empty());
  std::vector<int> largos{0}; // characters of each line
  const std::string bytes = Utf8ACp1252(texto);
  for (std::size_t i = 0; i < bytes.size(); ++i)
    if (bytes[i] != '\r')
      ++largos.back();
    else
      largos.push_back(0), i += i + 1 < bytes.size() && bytes[i + 1] == '\n';
  ASSERT_TRUE(s.ErrLin() >= 0 && s.ErrLin() < static_cast<int>(largos.size()));
  ASSERT_TRUE(s.ErrCol() >= 0 && s.ErrLen() >= 0);
  // An empty mark at an end of line reached through a continuation keeps the
  // column of the line before; a token's mark lies within its own line.
  ASSERT_LE(s.ErrCol() + s.ErrLen(),
            s.ErrLen() > 0 ? largos[s.ErrLin()] : *std::max_element(largos.begin(), largos.end()));
}

AnaLex Lexico() {
  AnaLex l;
  l.IgnCom(false);
  l.IndCom(1), l.IndCad(2), l.IndNum(3), l.IndId(4), l.IndPC(5), l.IndOpr(6), l.IndFL(7);
  l.IndFA(kFA), l.IndDesc(9);
  l.AñadePC(20, "sin"), l.AñadePC(21, "e"), l.AñadePC(22, "Año");
  int codigo = 30;
  for (const char* op :
       {"+", "-", "*", "·", "^", "(", ")", "=", ">", "<", ">=", "=>", "<>", ">>=", "."})
    l.AñadeOpr(codigo++, op);
  return l;
}

// Under each skipping switch and separator.
TEST(RobustezLang, RandomTextsAreReadWithExactPositions) {
  std::mt19937 gen(20240611);
  std::vector<AnaLex> lexs(4, Lexico());
  lexs[1].IgnFL(true), lexs[2].IgnCom(true), lexs[3].IgnFL(true), lexs[3].IgnCom(true);
  lexs[3].PuntoDec(",");
  for (int i = 0; i < 350; ++i) {
    const std::string texto = Aleatorio(gen);
    for (AnaLex& lex : lexs)
      LeeTodo(lex, texto);
    if (HasFatalFailure()) FAIL() << testing::PrintToString(texto);
  }
}

TEST(RobustezLang, GeneratedExpressionsAreAcceptedAndNormal) {
  std::mt19937 gen(1234);
  SintaxExp s;
  for (int i = 0; i < 600 && !HasFailure(); ++i) {
    const std::string fin = Uno(gen, {"", " ' fin", "\r\n", "\r\n\r\n ' c\r\n"});
    const std::string rel = Uno(gen, {"=", ">", "<", ">=", "=>", "<=", "=<", "<>", "><", "> ="});
    const std::string exp = Valida(gen), izq = Valida(gen) + " ", der = " " + Valida(gen);
    EXPECT_TRUE(s.SintaxExpr(exp + fin)) << exp << ": " << s.ErrDesc() << " at " << s.ErrCol();
    Comprueba(s, &SintaxExp::SintaxExpr, exp + fin);
    EXPECT_TRUE(s.SintaxEcu(izq + "=" + der + fin)) << izq << "=" << der;
    EXPECT_TRUE(s.SintaxDes(izq + rel + der + fin)) << izq << rel << der;
    Comprueba(s, &SintaxExp::SintaxDes, izq + rel + der + fin);
    EXPECT_EQ(s.Expr().find_first_of("\t\r'"), std::string::npos) << s.Expr();
  }
}

TEST(RobustezLang, LongLines) {
  const std::size_t n = 100000;
  std::string eñes;
  for (std::size_t i = 0; i < n / 2; ++i)
    eñes += "ñ";
  AnaLex lex = Lexico();
  SintaxExp s;
  for (const std::string& texto : {std::string(n, '7'), eñes + "1.5E-3" + eñes,
                                   std::string(n, ' ') + "x", "\"" + std::string(n, 'z') + "\"",
                                   "'" + std::string(n, 'c'), std::string(10000, '\r') + "x"}) {
    SCOPED_TRACE(texto.substr(0, 12));
    LeeTodo(lex, texto);
    Comprueba(s, &SintaxExp::SintaxExpr, texto);
  }
  // An opening of any depth is answered, not a crash; nesting far deeper than
  // any document holds is still an expression.
  Comprueba(s, &SintaxExp::SintaxExpr, std::string(n, '('));
  std::string anidado = "--x";
  for (int i = 0; i < 50; ++i)
    anidado = "sin((" + anidado + "))";
  EXPECT_TRUE(s.SintaxExpr(anidado)) << s.ErrDesc();
  // One long line of short tokens, read once by a checker of its own: the
  // lexer costs per token, and more after a long literal. Its columns pass
  // the 16-bit range.
  std::string sumas;
  for (std::size_t i = 0; i < n / 2; ++i)
    sumas += "x+";
  SintaxExp largo;
  EXPECT_FALSE(largo.SintaxExpr(sumas + "+"));
  EXPECT_EQ(largo.Expr(), sumas);
  EXPECT_EQ(largo.ErrCol(), 100001);
}

} // namespace
