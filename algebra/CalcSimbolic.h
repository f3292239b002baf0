#pragma once
// CalcSimbolic: turns an expression text into a simplified expression text.
// An expression is never held as a tree: the parser reads tokens and, as soon
// as it has both operands of an operator, calls that operator's combining
// operation, which receives the two simplified operand texts and returns the
// simplified text of the combination. Operand texts are examined by re-lexing
// them with a second lexer (the scanning lexer).
//
// Numbers are carried as text in the one number format (TextoNumero).
// Every public member runs under an error trap: bad input fills ErrNumber and
// ErrDesc and nothing escapes. Texts enter and leave as UTF-8; inside, they
// are Windows-1252 bytes like the lexer's buffer.

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "lang/AnaLex.h"

class CalcSimbolic {
public:
  CalcSimbolic();

  std::string ErrDesc() const { return errDesc_; }
  std::int32_t ErrNumber() const { return errNumber_; }

  // Setting CalcExpNum, to either value, also switches ResolveConst on: a
  // caller that asks for numeric evaluation always gets constants resolved.
  bool CalcExpNum() const { return calcExpNum_; }
  void CalcExpNum(bool valor);
  bool ResolveConst() const { return resolveConst_; }
  void ResolveConst(bool valor) { resolveConst_ = valor; }
  // Decimal separator of the input: "." or ",". Results always use ".".
  std::string PuntoDec() const { return puntoDec_; }
  void PuntoDec(const std::string& separador);

  // The simplified form of `exp`; "" on error.
  std::string Calc(const std::string& exp);
  // `ecu` is "L = R"; on success it becomes the simplified text of L-(R).
  // Its trap is reduced: on failure it sets ErrNumber only (ErrDesc may
  // belong to an earlier call) and `ecu` may hold the simplified L.
  bool IguCero(std::string& ecu);
  // Solves exp = 0 for `var` when exp has the form a*var^n + b (a, n, b free
  // of var); "" on error.
  std::string Desp_axNb(const std::string& exp, const std::string& var);

  // Rounding digits kept for the caller; not used by the arithmetic.
  int CifRedInt() const { return cifRedInt_; }
  void CifRedInt(int valor) { cifRedInt_ = valor; }

  // Token kinds of the calculator's own lexers.
  enum Tipo : int {
    kMas = 1,
    kMenos,
    kPor,
    kEntre,
    kPotencia,
    kAbre,
    kCierra,
    kPrimeraFuncion = 8,
    kLn = 9,
    kUltimaFuncion = 33,
    kPi = 34,
    kE = 35,
    kCom = 36,
    kFL = 38,
    kFA = 39,
    kCad = 40,
    kNum = 41,
    kId = 42,
    kPC = 43,
    kOpr = 44,
    kDesc = 45,
    kIgual = 46
  };

private:
  // A text cut into tokens by the scanning lexer; the views below point
  // into the scanned text, which must outlive them. The same small texts are
  // scanned over and over while one expression is simplified, so the tokens
  // of every text scanned during one public call are kept until the next.
  struct Token {
    int ini, fin, tipo; // byte range in the text, token kind
  };
  struct Escaneo {
    std::string_view texto;
    const std::vector<Token>& toks;
    std::string_view Trozo(int t0, int t1) const; // the text of tokens [t0, t1)
  };
  // A factor of a term: base^exp ("" for an exponent of 1). The keys are the
  // texts as compared: upper case, enclosing parentheses removed.
  struct Factor {
    std::string_view texto, base, exp;
    std::string clave, claveExp;
  };
  // A term: its numeric coefficient (the product of its plain-number
  // factors, with its sign) and its literal factors in order.
  struct Termino {
    bool negativo;
    std::string_view cuerpo; // the term without its sign run
    double coef;
    std::vector<Factor> lit;
  };

  // Parser (CalcSimbolic.cpp): each rule returns its simplified text.
  // `propio`: a text the calculator built itself, whose numbers always use
  // "." whatever PuntoDec says.
  std::string SimplExp(std::string_view texto, bool propio = false);
  void CargaTexto(std::string_view texto, bool propio = false);
  void Avanza();
  void Espera(int tipo);
  std::string Expr();
  std::string TerminoExp();
  std::string Signado();
  bool Signos();
  std::string Potencia();
  std::string BaseSignada();
  std::string Primario();
  std::string Funcion();
  void AtrapaError(std::int32_t numero, const std::string& descripcion);

  // Scanning (CalcEscaneo.cpp).
  Escaneo Escanea(std::string_view texto);
  bool EsNumero(std::string_view texto);
  // Operator sets for BuscaOp: bits of the token kinds.
  static constexpr unsigned Op(int tipo) { return 1u << tipo; }
  // The index of the first token of a kind in `ops` that stands outside
  // parentheses, among the tokens [desde, hasta) (hasta -1: to the end;
  // desde must lie outside parentheses); -1 if none. A "+" or "-" right
  // after "*", "/" or "^" is a sign and does not count.
  static int BuscaOp(const Escaneo& e, unsigned ops, int desde = 0, int hasta = -1);
  // Whether an operator of `ops` stands outside parentheses after the first
  // token: a leading sign is not a binary operator.
  static bool TieneBinario(const Escaneo& e, unsigned ops);
  bool Fraccion(const Escaneo& e, std::string_view& num, std::string_view& den);
  std::string_view LadoDeFraccion(std::string_view lado);
  static std::vector<Termino> Terminos(const Escaneo& e);

  // Combining operations (CalcCombina.cpp).
  std::string SumaExp(std::string_view l, std::string_view r);
  std::string RestaExp(std::string_view l, std::string_view r);
  std::string MultExp(std::string_view l, std::string_view r);
  std::string DivExp(std::string_view l, std::string_view r);
  std::string PotExp(std::string_view l, std::string_view r);
  std::string NegExp(std::string_view t);
  bool EsIgual(std::string_view a, std::string_view b);
  std::string SumaFracciones(std::string_view l, std::string_view r, bool resta);
  std::string SumaDeTerminos(std::string_view texto);
  std::string ProductoExpandido(std::string_view l, std::string_view r);
  std::string ProductoDeTerminos(const Termino& a, const Termino& b);
  std::string Cociente(std::string_view num, std::string_view den);

  // Solving (CalcDespeja.cpp).
  bool DescomponAxNb(std::string_view exp, std::string_view var, std::string& a, std::string& b,
                     std::string& n);

  std::unordered_map<std::string, std::vector<Token>> escaneos_;
  std::size_t trabajo_ = 0; // bytes scanned anew during this public call
  AnaLex lexP_;             // parse lexer
  AnaLex lexS_;             // scanning lexer
  int token_ = 0;
  int anidamiento_ = 0; // open parentheses and function calls of the parse
  std::int32_t errNumber_ = 0;
  std::string errDesc_;
  bool calcExpNum_ = false, resolveConst_ = false;
  std::string puntoDec_ = ".";
  int cifRedInt_ = 10;
};
