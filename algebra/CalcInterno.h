#pragma once
// The workings of CalcSimbolic, shared by the calculator's source files and
// seen by no other layer.
//
// An expression is never held as a tree: the parser reads tokens and, as soon
// as it has both operands of an operator, calls that operator's combining
// operation, which receives the two simplified operand texts and returns the
// simplified text of the combination. Operand texts are examined by re-lexing
// them with a second lexer (the scanning lexer). Texts enter and leave as
// UTF-8; inside, they are Windows-1252 bytes like the lexer's buffer.

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "algebra/CalcSimbolic.h"
#include "lang/AnaLex.h"

struct ErrorMotor;

// The work one public call of the calculator may do before it gives up with
// ErrAritmetica::TextoExcesivo, in operations on terms: a term read in a sum,
// a factor or 16 bytes written, a pair of terms multiplied, a pair of factors
// compared, a token lexed, a kept text looked up (and every 256 bytes hashed
// to find it). One operation takes 30 to 110 nanoseconds in a Release build,
// so a derivation that swells is refused within 50 to 170 ms. Typical
// derivations do under 6,000; the product of 64 binomials, the largest
// benchmarked family answered, about 1.1 million.
inline constexpr std::size_t kMaxTrabajo = 1'500'000;

class MotorCalc {
public:
  MotorCalc();

  // Token kinds of the calculator's own lexers: the codes it registers.
  enum Tipo : int {
    kMas = 1,
    kMenos = 2,
    kPor = 3, // "*" and "·"
    kEntre = 4,
    kPotencia = 5,
    kAbre = 6,
    kCierra = 7,
    kPrimeraFuncion = 8, // Log, then the other functions in the vocabulary's order
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
  friend class CalcSimbolic;

  // A text cut into tokens by the scanning lexer; the views below point
  // into the scanned text, which must outlive them. The same small texts are
  // scanned over and over while one expression is simplified, so the tokens
  // of every text scanned during one public call are kept until the next.
  struct Token {
    int ini, fin, tipo; // byte range in the text, token kind
  };
  struct Escaneado;
  struct Escaneo {
    std::string_view texto; // the kept copy of the scanned text
    const std::vector<Token>& toks;
    Escaneado& datos;
    std::string_view Trozo(int t0, int t1) const; // the text of tokens [t0, t1)
  };
  // A factor of a term: base^exp ("" for an exponent of 1). The keys are the
  // texts as compared: upper case, enclosing parentheses removed.
  struct Factor {
    std::string_view texto, base, exp;
    std::string clave, claveExp;
    int t0 = 0, t1 = 0; // the tokens of texto in its scan
  };
  // A term: its numeric coefficient (the product of its plain-number
  // factors, with its sign) and its literal factors in order.
  struct Termino {
    bool negativo;
    std::string_view cuerpo; // the term without its sign run
    double coef;
    std::vector<Factor> lit;
    bool negativoDelSigno = false; // the sign run's alone, before signed factors
    int t0 = 0, t1 = 0;            // the tokens of cuerpo in its scan
    // The literal part's key for finding like terms (ClaveLiteral), made the
    // first time the term is summed and kept with its scan.
    mutable std::string claveLit;
    mutable bool conClave = false;
  };

  // What is kept of a scanned text: its tokens and, once asked for, its
  // terms, whose views point into the kept copy of the text.
  struct Escaneado {
    std::vector<Token> toks;
    std::vector<Termino> terminos;
    bool conTerminos = false;
  };
  // Looks texts up by view, so that finding a kept scan copies nothing.
  struct HashTexto {
    using is_transparent = void;
    std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>{}(s); }
  };

  // The public calls under their traps (CalcSimbolic.cpp, CalcDespeja.cpp).
  std::string Calc(const std::string& exp);
  bool IguCero(std::string& ecu);
  std::string Desp_axNb(const std::string& exp, const std::string& var);
  void PuntoDec(const std::string& separador);
  void Empieza(); // a public call starts: no scans kept, no work done
  void AtrapaError(const ErrorMotor& error);

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
  // The terms of a scanned text, read once per text and kept with its scan.
  const std::vector<Termino>& Terminos(const Escaneo& e);
  static void LeeFactores(const Escaneo& e, int ini, int fin, Termino& t);

  // Combining operations (CalcCombina.cpp).
  std::string SumaExp(std::string_view l, std::string_view r);
  std::string RestaExp(std::string_view l, std::string_view r);
  std::string MultExp(std::string_view l, std::string_view r);
  std::string DivExp(std::string_view l, std::string_view r);
  std::string PotExp(std::string_view l, std::string_view r);
  std::string NegExp(std::string_view t);
  bool EsIgual(std::string_view a, std::string_view b);
  std::string SumaFracciones(std::string_view l, std::string_view r, bool resta);
  // The sum of the terms of every piece, as if the pieces were written one
  // after the other with Une: the pieces' own scans are reused.
  std::string SumaDeTerminos(std::initializer_list<std::string_view> piezas);
  // A sum written together with its scan (CalcRedaccion.cpp): its tokens,
  // and where each of its terms and factors stands, taken from the scans of
  // the terms it was written from. The operation that reads the sum next
  // then finds it scanned instead of lexing and splitting it again.
  struct Redaccion {
    struct Colocado {
      const Termino* fuente; // the term whose factors it holds
      bool negativo, negativoDelSigno;
      double coef;
      int cuerpoIni, cuerpoFin, t0, t1; // bytes and tokens of its body
      std::size_t primerFactor;         // its first entry in `factores`
    };
    struct Lugar {
      int ini, t0; // where a factor's text and first token went
    };
    std::string texto;
    std::vector<Token> toks;
    std::vector<Colocado> terminos;
    std::vector<Lugar> factores;

    void Reserva(std::size_t bytes, std::size_t tokens, std::size_t terminos);
    void Operador(char c, int tipo);
    // Copies the tokens [t0, t1) of a scan with the text they cover.
    void Copia(const Escaneo& e, int t0, int t1);
    // A term of a scan copied as it stands, or with its sign changed.
    void TerminoCopiado(const Escaneo& e, const Termino& t);
    // A term written anew from a merged coefficient and the factors of `t`.
    void TerminoNuevo(const Escaneo& e, const Termino& t, double coef);
  };
  // Keeps what Redaccion wrote as the scan of its text.
  void GuardaEscaneo(Redaccion& r);
  // In builds with checks, scans the text anew and stops the program if the
  // kept scan differs from it in any token, term or factor.
  void CompruebaEscaneo(const std::string& texto, const Escaneado& hecho);
  std::string ProductoExpandido(std::string_view l, std::string_view r);
  std::string ProductoDeTerminos(const Termino& a, const Termino& b);
  std::string Cociente(std::string_view num, std::string_view den);

  // Solving (CalcDespeja.cpp).
  bool DescomponAxNb(std::string_view exp, std::string_view var, std::string& a, std::string& b,
                     std::string& n);

  std::unordered_map<std::string, Escaneado, HashTexto, std::equal_to<>> escaneos_;
  std::size_t trabajo_ = 0; // operations done during this public call (kMaxTrabajo)
  void Trabaja(std::size_t operaciones);
  AnaLex lexP_; // parse lexer
  AnaLex lexS_; // scanning lexer
  int token_ = 0;
  int anidamiento_ = 0; // open parentheses and function calls of the parse
  std::int32_t errNumber_ = 0;
  std::string errDesc_;
  bool calcExpNum_ = false, resolveConst_ = false;
  std::string puntoDec_ = ".";
  int cifRedInt_ = 10;
};
