#pragma once
// SintaxExp: decides whether a text is a well-formed expression, equation or
// inequality of the expression language, reports the first error with its
// place, and gives back the normalised text Expr (no blanks, no comments,
// sign runs folded; the sign run written right after "^" is dropped, so
// "x^-2" normalises to "x^2").
//
// Each check resets ErrNumber and Expr; the other fields of the error record
// keep their old values after a success and are meaningful after a failure.

#include <cstdint>
#include <string>

#include "lang/AnaLex.h"

struct ErrorMotor;

// The checker's user-input errors, by message number.
enum class ErrSintax {
  SinMensaje = 0, // an expected token that no rule of the grammar expects
  EsperaExpresion = 1,
  EsperaRelacion = 2,
  EsperaFinDeArchivo = 3,
  EsperaFinDeLinea = 4,
  EsperaIgual = 5,
  EsperaAbre = 6,
  EsperaCierra = 7,
};

// Parentheses and function calls nested deeper than this are refused, and
// so is any nesting the thread's stack has no room left for (lang/Pila.h).
inline constexpr int kMaxAnidamiento = 10000;

class SintaxExp {
public:
  SintaxExp();

  bool SintaxExpr(const std::string& texto);
  bool SintaxEcu(const std::string& texto);
  bool SintaxDes(const std::string& texto);

  std::int32_t ErrNumber() const { return errNumber_; }
  int ErrLin() const { return errLin_; }
  int ErrCol() const { return errCol_; }
  int ErrLen() const { return errLen_; }
  std::string ErrDesc() const { return errDesc_; }
  std::string Expr() const { return expr_; }

  // The token codes of the expression language as this checker registers them.
  enum Codigo : int {
    kId = 1,
    kNum,
    kFL,
    kFA,
    kMas,
    kMenos,
    kPor,
    kEntre,
    kPotencia,
    kAbre,
    kCierra,
    kMayorIgual,
    kMenorIgual,
    kDistinto,
    kIgual,
    kMayor,
    kMenor,
    kPrimeraFuncion = 18,
    kUltimaFuncion = 43,
    kPi = 44,
    kE = 45
  };

private:
  enum class Forma { Expresion, Ecuacion, Desigualdad };
  bool Comprueba(const std::string& texto, Forma forma);
  void Avanza();
  void Añade();
  void Espera(int codigo);
  void Expresion();
  void Termino();
  void PotenciaConSigno();
  bool RachaDeSignos();
  void Potencia();
  void Factor();
  void Relacion();
  void FinDeTexto();
  void LlenaError(const ErrorMotor& error);

  AnaLex lex_;
  int token_ = 0;
  int anidamiento_ = 0; // open parentheses and function calls
  std::int32_t errNumber_ = 0;
  int errLin_ = 0, errCol_ = 0, errLen_ = 0;
  std::string errDesc_, expr_;
};
