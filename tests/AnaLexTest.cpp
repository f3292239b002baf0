// The lexer as a client sees it: its own class codes, a small vocabulary, and
// the token stream, positions and warnings that come out of it.

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "lang/AnaLex.h"
#include "lang/Aviso.h"
#include "lang/Cp1252.h"

namespace {

// Class codes of this client, apart from every keyword and operator code.
enum : int { kCom = 1, kCad, kNum, kId, kPC, kOpr, kFL, kFA, kDesc };
enum : int { kSin = 20, kE, kPi, kAño };
enum : int { kMas = 30, kMenos, kPor, kMayor, kIgual, kMenor, kMayorIgual, kMenorIgual, kDistinto };
// Longer operators come both before and after their prefixes: the longest
// match must not depend on the order of registration.
const std::pair<int, const char*> kOperadores[] = {
    {kMas, "+"},   {kMenos, "-"},       {kPor, "*"},         {kPor, "·"},
    {kMayor, ">"}, {kMayorIgual, ">="}, {kMayorIgual, "=>"}, {kIgual, "="},
    {kMenor, "<"}, {kMenorIgual, "<="}, {kDistinto, "<>"}};

struct Tok {
  int codigo;
  std::string lex;
  bool operator==(const Tok&) const = default;
};
void PrintTo(const Tok& t, std::ostream* os) {
  *os << t.codigo << ":" << testing::PrintToString(t.lex);
}

const std::string kAvisoPila = ".AnaLex|No hay estados en la pila del analizador léxico.";

class AnaLexTest : public testing::Test {
protected:
  void SetUp() override {
    FijaManejadorAviso([this](const std::string& origen, const std::string& texto) {
      avisos.push_back(origen + "|" + texto);
    });
    lex.IndCom(kCom), lex.IndCad(kCad), lex.IndNum(kNum), lex.IndId(kId), lex.IndPC(kPC);
    lex.IndOpr(kOpr), lex.IndFL(kFL), lex.IndFA(kFA), lex.IndDesc(kDesc);
    lex.AñadePC(kSin, "Sin"), lex.AñadePC(kE, "e"), lex.AñadePC(kPi, "PI");
    for (auto [codigo, texto] : kOperadores)
      lex.AñadeOpr(codigo, texto);
    ASSERT_TRUE(avisos.empty());
  }
  void TearDown() override { FijaManejadorAviso(nullptr); }

  // Reads the whole text: the tokens before the end of file, and in `pos` the
  // line and column after every token, the end of file included.
  std::vector<Tok> Tokens(const std::string& texto) {
    lex.Buffer(texto);
    std::vector<Tok> leidos;
    pos.clear();
    for (std::size_t i = 0; i <= texto.size(); ++i) {
      const int codigo = lex.SgtToken();
      pos += std::to_string(lex.Lin()) + ":" + std::to_string(lex.Col()) + " ";
      if (codigo == kFA) {
        EXPECT_EQ(lex.Lex(), "");
        EXPECT_EQ(lex.SgtToken(), kFA) << "reading past the end";
        return leidos;
      }
      leidos.push_back({codigo, lex.Lex()});
    }
    ADD_FAILURE() << "no end of file";
    return leidos;
  }
  void CheckLex(const std::string& texto, const std::vector<Tok>& esperado) {
    EXPECT_EQ(Tokens(texto), esperado) << "text " << testing::PrintToString(texto);
  }
  std::string Posiciones(const std::string& texto) {
    Tokens(texto);
    return pos;
  }
  // "PtrBuffer Lin:Col Lex|LexCad UltInd/IndCls AntInd": what a restore
  // puts back, and AntInd, which it must not.
  std::string Foto() {
    return std::to_string(lex.PtrBuffer()) + " " + std::to_string(lex.Lin()) + ":" +
           std::to_string(lex.Col()) + " " + lex.Lex() + "|" + lex.LexCad() + " " +
           std::to_string(lex.UltInd()) + "/" + std::to_string(lex.IndCls()) + " " +
           std::to_string(lex.AntInd());
  }

  AnaLex lex;
  std::vector<std::string> avisos;
  std::string pos;
};

TEST_F(AnaLexTest, Numbers) {
  CheckLex("", {});
  CheckLex(".5", {{kNum, ".5"}});
  CheckLex("5.", {{kNum, "5"}, {kDesc, "."}});
  CheckLex("2e", {{kNum, "2"}, {kE, "e"}});
  CheckLex("2e+", {{kNum, "2"}, {kE, "e"}, {kMas, "+"}});
  CheckLex("2ex", {{kNum, "2"}, {kId, "ex"}});
  CheckLex("1.5E-3 7D2 1e+05x", {{kNum, "1.5E-3"}, {kNum, "7D2"}, {kNum, "1e+05"}, {kId, "x"}});
  CheckLex("1.e5", {{kNum, "1"}, {kDesc, "."}, {kId, "e5"}});
  CheckLex("12.34.5", {{kNum, "12.34"}, {kNum, ".5"}});
  CheckLex("-3 007", {{kMenos, "-"}, {kNum, "3"}, {kNum, "007"}});
  CheckLex("1,5", {{kNum, "1"}, {kDesc, ","}, {kNum, "5"}});
  lex.PuntoDec(",");
  CheckLex("1,5 ,5e2", {{kNum, "1,5"}, {kNum, ",5e2"}});
  CheckLex("1.5", {{kNum, "1"}, {kDesc, "."}, {kNum, "5"}});
}

TEST_F(AnaLexTest, IdentifiersAndKeywords) {
  CheckLex("SIN sin Sin sInE", {{kSin, "SIN"}, {kSin, "sin"}, {kSin, "Sin"}, {kId, "sInE"}});
  CheckLex("Pi PI e E ex", {{kPi, "Pi"}, {kPi, "PI"}, {kE, "e"}, {kE, "E"}, {kId, "ex"}});
  CheckLex("Año ñandú ÁÉÍÓÚÑ x_1 a_",
           {{kId, "Año"}, {kId, "ñandú"}, {kId, "ÁÉÍÓÚÑ"}, {kId, "x_1"}, {kId, "a_"}});
  CheckLex("Über", {{kDesc, "Ü"}, {kId, "ber"}});
  CheckLex("àb _x", {{kDesc, "à"}, {kId, "b"}, {kDesc, "_"}, {kId, "x"}});
  CheckLex("€x", {{kDesc, "€"}, {kId, "x"}});
  CheckLex("中x", {{kDesc, Cp1252AUtf8(std::string(1, kByteAjeno))}, {kId, "x"}});
  lex.AñadePC(kAño, "Año");
  CheckLex("año AÑO", {{kAño, "año"}, {kAño, "AÑO"}});
}

TEST_F(AnaLexTest, StringLiterals) {
  CheckLex("\"ab\"\"c\"", {{kCad, "\"ab\"\"c\""}});
  EXPECT_EQ(lex.LexCad(), "ab\"c");
  CheckLex("\"año\"", {{kCad, "\"año\""}});
  EXPECT_EQ(lex.LexCad(), "año");
  CheckLex("\"\"", {{kCad, "\"\""}});
  EXPECT_EQ(lex.LexCad(), "");
  CheckLex("\"x ' y\" \"a\nb\"", {{kCad, "\"x ' y\""}, {kCad, "\"a\nb\""}});
  // No closing delimiter on the line: the delimiter alone is unknown.
  CheckLex("\"ab", {{kDesc, "\""}, {kId, "ab"}});
  CheckLex("\"a\r\nb\"", {{kDesc, "\""}, {kId, "a"}, {kFL, "\r\n"}, {kId, "b"}, {kDesc, "\""}});
  CheckLex("\"a\"\"", {{kDesc, "\""}, {kId, "a"}, {kCad, "\"\""}});
}

TEST_F(AnaLexTest, CommentsAndEndsOfLine) {
  CheckLex(" \t ' solo", {});
  CheckLex("x ' note\r\ny", {{kId, "x"}, {kFL, "\r\n"}, {kId, "y"}});
  CheckLex("x 'a\nb", {{kId, "x"}}); // a lone LF does not end a comment
  CheckLex("a\rb\r\nc", {{kId, "a"}, {kFL, "\r"}, {kId, "b"}, {kFL, "\r\n"}, {kId, "c"}});
  CheckLex("a\r\r\n", {{kId, "a"}, {kFL, "\r"}, {kFL, "\r\n"}});
  CheckLex("a\nb\n\r", {{kId, "a"}, {kDesc, "\n"}, {kId, "b"}, {kDesc, "\n"}, {kFL, "\r"}});
  lex.IgnFL(true);
  CheckLex("a\r\nb\rc 'x\r\nd\nf",
           {{kId, "a"}, {kId, "b"}, {kId, "c"}, {kId, "d"}, {kDesc, "\n"}, {kId, "f"}});
  EXPECT_EQ(lex.Lin(), 3);
  lex.IgnCom(false);
  CheckLex("a 'c\r\nb", {{kId, "a"}, {kCom, "'c"}, {kId, "b"}});
  lex.IgnFL(false);
  CheckLex("x ' note\r\ny", {{kId, "x"}, {kCom, "' note"}, {kFL, "\r\n"}, {kId, "y"}});
  CheckLex("'a\nb  \r''", {{kCom, "'a\nb  "}, {kFL, "\r"}, {kCom, "''"}});
}

TEST_F(AnaLexTest, LineContinuation) {
  CheckLex("a _\r\nb", {{kId, "a"}, {kId, "b"}});
  EXPECT_EQ(lex.Lin(), 1);
  CheckLex("a\t_\rb _\r\n _\r\nc", {{kId, "a"}, {kId, "b"}, {kId, "c"}});
  // Not continuations: no blank before, first byte, last byte, no CR after.
  CheckLex("a_\r\nb", {{kId, "a_"}, {kFL, "\r\n"}, {kId, "b"}});
  CheckLex("a+_\r\nb", {{kId, "a"}, {kMas, "+"}, {kDesc, "_"}, {kFL, "\r\n"}, {kId, "b"}});
  CheckLex("_\r\nb", {{kDesc, "_"}, {kFL, "\r\n"}, {kId, "b"}});
  CheckLex("a _", {{kId, "a"}, {kDesc, "_"}});
  CheckLex("a _ \r\nb", {{kId, "a"}, {kDesc, "_"}, {kFL, "\r\n"}, {kId, "b"}});
  CheckLex("a _\nb", {{kId, "a"}, {kDesc, "_"}, {kDesc, "\n"}, {kId, "b"}});
}

TEST_F(AnaLexTest, LongestOperatorWithBlanksBetweenCharacters) {
  CheckLex("x > = 1", {{kId, "x"}, {kMayorIgual, "> ="}, {kNum, "1"}});
  CheckLex("x>=1 = >", {{kId, "x"}, {kMayorIgual, ">="}, {kNum, "1"}, {kMayorIgual, "= >"}});
  CheckLex("< \t>", {{kDistinto, "< \t>"}});
  CheckLex("<=>", {{kMenorIgual, "<="}, {kMayor, ">"}});
  CheckLex("><", {{kMayor, ">"}, {kMenor, "<"}});
  CheckLex("> ", {{kMayor, ">"}}); // ">=" would run past the end
  CheckLex("+-a·b%",
           {{kMas, "+"}, {kMenos, "-"}, {kId, "a"}, {kPor, "·"}, {kId, "b"}, {kDesc, "%"}});
}

TEST_F(AnaLexTest, LinesAndColumnsCountCharacters) {
  EXPECT_EQ(Posiciones("año +\r\n\tb > = 1"), "0:3 0:5 1:0 1:2 1:6 1:8 1:8 ");
  EXPECT_EQ(Posiciones("añ+b"), "0:2 0:3 0:4 0:4 ");
  EXPECT_EQ(lex.PtrBuffer(), 4);
  EXPECT_EQ(Posiciones("a _\r\n  bc"), "0:1 1:4 1:4 ");
  EXPECT_EQ(Posiciones("\"é\" 'x\r\n"), "0:3 1:0 1:0 ");
  lex.IgnCom(false);
  EXPECT_EQ(Posiciones("x 'ñ\r"), "0:1 0:4 1:0 1:0 ");
}

TEST_F(AnaLexTest, ClassCodesComeFromTheClient) {
  lex.Buffer("Sin + x");
  EXPECT_EQ(lex.SgtToken(), kSin);
  EXPECT_EQ(Foto(), "3 0:3 Sin| 20/5 0");
  EXPECT_EQ(lex.SgtToken(), kMas);
  EXPECT_EQ(Foto(), "5 0:5 +| 30/6 20");
  EXPECT_EQ(lex.SgtToken(), kId);
  EXPECT_EQ(Foto(), "7 0:7 x| 4/4 30");
  lex.IndId(500), lex.IndNum(501), lex.IndFA(-7);
  lex.Buffer("y 2");
  EXPECT_EQ(lex.SgtToken(), 500);
  EXPECT_EQ(lex.SgtToken(), 501);
  EXPECT_EQ(lex.SgtToken(), -7);
  EXPECT_EQ(lex.IndCls(), -7);
}

TEST_F(AnaLexTest, StateStackHoldsSixteen) {
  lex.Buffer("a b c d e f g h i j k l m n o p q");
  for (int i = 0; i < 17; ++i)
    lex.SgtToken();
  for (int i = 0; i < 16; ++i)
    lex.Restaura();
  EXPECT_TRUE(avisos.empty());
  EXPECT_EQ(Foto(), "1 0:1 a| 4/4 4"); // the state from before "a" was pushed out
  lex.Restaura();
  EXPECT_EQ(avisos, std::vector<std::string>{kAvisoPila});
  EXPECT_EQ(Foto(), "1 0:1 a| 4/4 4");
}

TEST_F(AnaLexTest, RestoreUndoesOneTokenButNotAntInd) {
  lex.Buffer("\"s\" \"t\"\r\nx + 1");
  for (int i = 0; i < 6; ++i)
    lex.SgtToken();
  EXPECT_EQ(Foto(), "14 1:5 1|t 3/3 30");
  lex.Restaura();
  EXPECT_EQ(Foto(), "12 1:3 +|t 30/6 30");
  lex.Restaura(), lex.Restaura(), lex.Restaura();
  EXPECT_EQ(Foto(), "7 0:7 \"t\"|t 2/2 30");
  lex.Restaura();
  EXPECT_EQ(Foto(), "3 0:3 \"s\"|s 2/2 30");
  lex.Restaura();
  EXPECT_EQ(Foto(), "0 0:0 | 0/0 30");
  EXPECT_TRUE(avisos.empty());
}

TEST_F(AnaLexTest, LookAheadConsumesNothing) {
  lex.Buffer("x + y");
  EXPECT_TRUE(lex.VieneToken(kId) && lex.VieneIndCls(kId));
  EXPECT_FALSE(lex.VieneToken(kMas) || lex.VieneIndCls(kOpr) || lex.AvanzaToken(kMas));
  EXPECT_EQ(lex.PtrBuffer(), 0);
  EXPECT_TRUE(lex.AvanzaToken(kId));
  EXPECT_EQ(lex.Lex(), "x");
  EXPECT_TRUE(lex.VieneIndCls(kOpr) && !lex.VieneToken(kMenos) && lex.AvanzaToken(kMas));
  EXPECT_EQ(lex.PtrBuffer(), 3);
  // Look-aheads leave no state behind: two restores reach the start.
  lex.Restaura(), lex.Restaura();
  EXPECT_EQ(lex.PtrBuffer(), 0);
  EXPECT_TRUE(avisos.empty());
  lex.Restaura();
  EXPECT_EQ(avisos, std::vector<std::string>{kAvisoPila});
}

TEST_F(AnaLexTest, AssigningBufferStartsAFreshReading) {
  lex.Buffer("a\r\nbc");
  lex.SgtToken(), lex.SgtToken(), lex.SgtToken();
  lex.Buffer("año·€");
  EXPECT_EQ(lex.Buffer(), "año·€");
  EXPECT_EQ(Foto(), "0 0:0 bc| 4/4 7"); // the last token is left as it was
  lex.Restaura();
  EXPECT_EQ(avisos, std::vector<std::string>{kAvisoPila});
}

TEST_F(AnaLexTest, DecimalSeparator) {
  lex.PuntoDec(",");
  EXPECT_EQ(lex.PuntoDec(), "44");
  for (const char* malo : {";", "", "..", ", ", "46"})
    lex.PuntoDec(malo);
  EXPECT_EQ(lex.PuntoDec(), "44");
  EXPECT_EQ(avisos,
            std::vector<std::string>(
                5, ".AnaLex.PuntoDec|El separador decimal sólo puede ser el punto o la coma."));
  lex.PuntoDec(".");
  EXPECT_EQ(lex.PuntoDec(), "46");
}

TEST_F(AnaLexTest, KeywordWarnings) {
  const std::string dup = "\" ya existe en la lista de palabras clave.";
  const std::string mal = "\" no posee la sintaxis de los identificadores.";
  const std::pair<std::string, std::string> casos[] = {
      {"SIN", "sin" + dup}, {"Pi", "pi" + dup}, {"", mal},
      {"2X", "2x" + mal},   {"_x", "_x" + mal}, {"a b", "a b" + mal},
      {"a+b", "a+b" + mal}, {"ü", "ü" + mal}};
  for (const auto& [palabra, mensaje] : casos) {
    avisos.clear();
    lex.AñadePC(99, palabra);
    EXPECT_EQ(avisos, std::vector<std::string>{".AnaLex.AñadePC|La palabra clave \"" + mensaje});
  }
  CheckLex("sin", {{kSin, "sin"}}); // the refused duplicate did not replace the code
  avisos.clear();
  lex.AñadePC(kAño, "Año"), lex.AñadePC(99, "x_1");
  EXPECT_TRUE(avisos.empty());
  lex.AñadePC(99, "AÑO");
  EXPECT_EQ(avisos, std::vector<std::string>{".AnaLex.AñadePC|La palabra clave \"año" + dup});
}

TEST_F(AnaLexTest, OperatorWarnings) {
  const std::string dup = "\" ya existe en la lista de operadores.";
  const std::string mal = "\" no posee la sintaxis de los operadores.";
  const std::pair<std::string, std::string> casos[] = {
      {"+", "+" + dup}, {"·", "·" + dup},     {"<>", "<>" + dup}, {"", mal},
      {"a", "a" + mal}, {"+a", "+a" + mal},   {"'", "'" + mal},   {"\"", "\"" + mal},
      {"_", "_" + mal}, {"+ -", "+ -" + mal}, {"€", "€" + mal},   {"¿", "¿" + mal}};
  for (const auto& [texto, mensaje] : casos) {
    avisos.clear();
    lex.AñadeOpr(99, texto);
    EXPECT_EQ(avisos, std::vector<std::string>{".AnaLex.AñadeOpr|El Operador \"" + mensaje});
  }
  CheckLex("+a", {{kMas, "+"}, {kId, "a"}});
  avisos.clear();
  for (char c : std::string("!#$%&(),./:;?@[\\]^`{|}~"))
    lex.AñadeOpr(99, std::string(1, c));
  EXPECT_TRUE(avisos.empty());
  CheckLex("x%y", {{kId, "x"}, {99, "%"}, {kId, "y"}});
}

} // namespace
