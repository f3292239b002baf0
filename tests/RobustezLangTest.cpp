// Whatever the user types, the lexer must end every byte in some token and
// the checker must answer with a record that points inside the text. Inputs
// come from a fixed seed so that a failure can be replayed.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

#include "lang/AnaLex.h"
#include "lang/Cp1252.h"
#include "lang/SintaxExp.h"

namespace {

enum : int { kCom = 1, kCad, kNum, kId, kPC, kOpr, kFL, kFA, kDesc };

// Pieces that steer random texts into the lexer's corners: ends of line,
// continuations, literals, comments, exponents, operators split by blanks.
const std::vector<std::string> kPiezas = {
    "x",  "año", "Sin", "e", "1",    ".5", "2E", "+",  "-",    "3D-",  ",",  ".",  "(",
    ")",  "^",   "*",   "·", "/",    "=",  ">",  "<",  " ",    "\t",   "\r", "\n", "\r\n",
    " _", "_",   "\"",  "'", "\"\"", "ü",  "€",  "中", "\xC3", "\xFF", "%",  "PI", "ArcCtgH"};

std::string Aleatorio(std::mt19937& gen) {
  const std::size_t n = gen() % 300;
  std::string s;
  if (gen() % 2) {
    for (std::size_t i = 0; i < n; ++i)
      s += static_cast<char>(gen() & 0xFF);
  } else {
    for (std::size_t i = 0; i < n / 3; ++i)
      s += kPiezas[gen() % kPiezas.size()];
  }
  return s;
}

// Lines of 100000 characters made of a few long tokens, an opening of
// 100000 parentheses and many short lines.
std::vector<std::string> LineasLargas() {
  const std::size_t n = 100000;
  std::string eñes;
  for (std::size_t i = 0; i < n / 2; ++i)
    eñes += "ñ";
  return {std::string(n, '('),
          std::string(n, '7'),
          eñes + "1.5E-3" + eñes,
          std::string(n, ' ') + "x",
          "\"" + std::string(n, 'z') + "\"",
          "'" + std::string(n, 'c'),
          std::string(10000, '\r') + "x"};
}

// Reads the text to the end checking that every token passes at least one
// byte, that its Lex is exactly the bytes it passed last, and that Lin and
// Col agree with the ends of line passed so far.
void LeeTodo(AnaLex& lex, const std::string& texto) {
  const std::string bytes = Utf8ACp1252(texto);
  lex.Buffer(texto);
  ASSERT_EQ(Utf8ACp1252(lex.Buffer()), bytes);
  int lineas = 0;
  std::size_t inicioLinea = 0, leido = 0;
  for (std::size_t vuelta = 0;; ++vuelta) {
    ASSERT_LE(vuelta, bytes.size()) << "no end of file";
    const int anterior = lex.PtrBuffer();
    const int codigo = lex.SgtToken();
    const auto ptr = static_cast<std::size_t>(lex.PtrBuffer());
    ASSERT_LE(ptr, bytes.size());
    if (codigo == kFA) {
      ASSERT_EQ(ptr, bytes.size());
      ASSERT_EQ(lex.Lex(), "");
    } else {
      ASSERT_GT(lex.PtrBuffer(), anterior);
      const std::string tok = Utf8ACp1252(lex.Lex());
      ASSERT_GE(ptr, tok.size());
      ASSERT_EQ(bytes.substr(ptr - tok.size(), tok.size()), tok);
    }
    for (; leido < ptr; ++leido)
      if (bytes[leido] == '\r') {
        ++lineas;
        inicioLinea = leido + 1 < bytes.size() && bytes[leido + 1] == '\n' ? leido + 2 : leido + 1;
      }
    ASSERT_EQ(lex.Lin(), lineas);
    ASSERT_EQ(static_cast<std::size_t>(lex.Col()), ptr - inicioLinea);
    if (codigo == kFA) return;
  }
}

// Whatever the answer, a failure must mark a span inside one line of the text.
void Comprueba(SintaxExp& s, bool (SintaxExp::*check)(const std::string&),
               const std::string& texto) {
  if ((s.*check)(texto)) {
    ASSERT_EQ(s.ErrNumber(), 0);
    // The normal form is itself accepted and normal.
    const std::string expr = s.Expr();
    ASSERT_TRUE((s.*check)(expr)) << expr;
    ASSERT_EQ(s.Expr(), expr);
    return;
  }
  ASSERT_NE(s.ErrNumber(), 0);
  ASSERT_FALSE(s.ErrDesc().empty());
  std::vector<std::size_t> largos{0};
  const std::string bytes = Utf8ACp1252(texto);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] != '\r') {
      ++largos.back();
      continue;
    }
    if (i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
    largos.push_back(0);
  }
  ASSERT_GE(s.ErrLin(), 0);
  ASSERT_LT(static_cast<std::size_t>(s.ErrLin()), largos.size());
  ASSERT_GE(s.ErrCol(), 0);
  ASSERT_GE(s.ErrLen(), 0);
  // A token marks a span of its own line. An empty mark at an end of line
  // reached through a continuation keeps the column of the line before.
  const auto fin = static_cast<std::size_t>(s.ErrCol() + s.ErrLen());
  if (s.ErrLen() > 0) {
    ASSERT_LE(fin, largos[s.ErrLin()]);
  }
  ASSERT_LE(fin, *std::max_element(largos.begin(), largos.end()));
}

const char* Uno(std::mt19937& gen, std::initializer_list<const char*> l) {
  return l.begin()[gen() % l.size()];
}

// A well-formed expression with blanks, sign runs and continuations wherever
// the language allows them.
std::string Valida(std::mt19937& gen, int prof = 0) {
  auto b = [&] { return std::string(Uno(gen, {"", "", " ", "\t", " _\r\n "})); };
  auto signos = [&] {
    std::string s;
    while (gen() % 3 == 0)
      s += Uno(gen, {"-", "+"}) + b();
    return s;
  };
  auto factor = [&]() -> std::string {
    switch (gen() % (prof < 3 ? 4 : 2)) {
    case 0:
      return Uno(gen, {"x", "año", "Ñu", "y_2", "Pi", "E"});
    case 1:
      return Uno(gen, {"2", ".5", "1.5E-3", "7D2", "1E-999"});
    case 2:
      return "(" + b() + Valida(gen, prof + 1) + b() + ")";
    default:
      return Uno(gen, {"sin", "ArcCtgH", "LN"}) + b() + "(" + b() + Valida(gen, prof + 1) + b() +
             ")";
    }
  };
  std::string s = signos() + factor();
  while (gen() % 3 == 0)
    s += b() + Uno(gen, {"+", "-", "*", "·", "/", "^"}) + b() + signos() + factor();
  return s;
}

std::vector<AnaLex> Configuraciones() {
  std::vector<AnaLex> lexs(4);
  for (std::size_t i = 0; i < lexs.size(); ++i) {
    AnaLex& l = lexs[i];
    l.IndCom(kCom), l.IndCad(kCad), l.IndNum(kNum), l.IndId(kId), l.IndPC(kPC);
    l.IndOpr(kOpr), l.IndFL(kFL), l.IndFA(kFA), l.IndDesc(kDesc);
    l.IgnFL(i & 1), l.IgnCom(i & 2);
    if (i == 3) l.PuntoDec(",");
    l.AñadePC(20, "sin"), l.AñadePC(21, "e"), l.AñadePC(22, "Año");
    int codigo = 30;
    for (const char* op :
         {"+", "-", "*", "·", "^", "(", ")", "=", ">", "<", ">=", "=>", "<>", ">>=", "."})
      l.AñadeOpr(codigo++, op);
  }
  return lexs;
}

TEST(RobustezLang, RandomTextsThroughTheLexer) {
  std::mt19937 gen(20240611);
  std::vector<AnaLex> lexs = Configuraciones();
  for (int i = 0; i < 600; ++i) {
    const std::string texto = Aleatorio(gen);
    for (AnaLex& l : lexs) {
      LeeTodo(l, texto);
      if (HasFatalFailure()) FAIL() << testing::PrintToString(texto);
    }
  }
}

TEST(RobustezLang, RandomTextsThroughTheChecker) {
  std::mt19937 gen(7);
  SintaxExp s;
  for (int i = 0; i < 2000; ++i) {
    const std::string texto = Aleatorio(gen);
    for (auto check : {&SintaxExp::SintaxExpr, &SintaxExp::SintaxEcu, &SintaxExp::SintaxDes}) {
      Comprueba(s, check, texto);
      if (HasFatalFailure()) FAIL() << testing::PrintToString(texto);
    }
  }
}

TEST(RobustezLang, GeneratedExpressionsAreAcceptedAndNormal) {
  std::mt19937 gen(1234);
  SintaxExp s;
  for (int i = 0; i < 600; ++i) {
    const std::string fin = Uno(gen, {"", " ' fin", "\r\n", "\r\n\r\n ' c\r\n"});
    const std::string rel = Uno(gen, {"=", ">", "<", ">=", "=>", "<=", "=<", "<>", "><", "> ="});
    const std::string exp = Valida(gen), izq = Valida(gen) + " ", der = " " + Valida(gen);
    EXPECT_TRUE(s.SintaxExpr(exp + fin)) << exp << ": " << s.ErrDesc() << " at " << s.ErrCol();
    Comprueba(s, &SintaxExp::SintaxExpr, exp + fin);
    EXPECT_TRUE(s.SintaxEcu(izq + "=" + der + fin)) << izq << "=" << der;
    EXPECT_TRUE(s.SintaxDes(izq + rel + der + fin)) << izq << rel << der;
    Comprueba(s, &SintaxExp::SintaxDes, izq + rel + der + fin);
    EXPECT_EQ(s.Expr().find_first_of("\t\r'"), std::string::npos) << s.Expr();
    if (HasFailure()) break;
  }
}

TEST(RobustezLang, LongLines) {
  std::vector<AnaLex> lexs = Configuraciones();
  SintaxExp s;
  for (const std::string& texto : LineasLargas()) {
    SCOPED_TRACE(texto.substr(0, 12));
    LeeTodo(lexs[0], texto);
    Comprueba(s, &SintaxExp::SintaxExpr, texto);
  }
  // One long line of short tokens, read once by a checker of its own: the
  // lexer costs per token, and more after a long literal.
  std::string sumas;
  for (int i = 0; i < 50000; ++i)
    sumas += "x+";
  // Nesting far deeper than any document holds is still an expression.
  std::string anidado = "--x";
  for (int i = 0; i < 50; ++i)
    anidado = "sin((" + anidado + "))";
  EXPECT_TRUE(s.SintaxExpr(anidado)) << s.ErrDesc();
  SintaxExp largo;
  EXPECT_FALSE(largo.SintaxExpr(sumas + "+"));
  EXPECT_EQ(largo.Expr(), sumas);
  EXPECT_EQ(largo.ErrCol(), 100001);
  EXPECT_EQ(largo.ErrLen(), 0);
  // Columns beyond the 16-bit range must not wrap.
  EXPECT_TRUE(s.SintaxExpr(std::string(70000, ' ') + "x"));
  EXPECT_FALSE(s.SintaxExpr(std::string(70000, ' ') + "x y"));
  EXPECT_EQ(s.ErrCol(), 70002);
}

} // namespace
