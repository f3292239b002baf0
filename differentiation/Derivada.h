#pragma once
// Derivada: differentiates an equation with respect to VarInd, treating
// VarDep as a function of it, by rewriting text. Sub-expressions still to be
// differentiated are held as pending marks "@(" ... ")@" inside the working
// text; one loop resolves the first mark with the rule tables until none is
// left. The derivative of VarDep is written as the derivative name
// ("d" VarDep "_d" VarInd, e.g. dy_dx), for which the calculator finally
// solves the differentiated equation.
//
// Marks are never nested: every rule writes its marks around pieces of the
// text it was given, and those hold no "@".

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class CalcSimbolic;
class SintaxExp;
struct ErrorMotor;

// The derivation's own errors, by code.
enum class ErrDerivada {
  NombreInterno = 1, // the derivative name, as a variable or in the equation
  IdentificadorNoValido = 2,
  NoDespeja = 3, // the differentiated equation does not solve for the derivative
  VariablesIguales = 4,
  CreceEnExceso = 5, // the working text or the steps grow past their bounds
};

class Derivada {
public:
  Derivada();
  ~Derivada();
  Derivada(Derivada&&) noexcept;
  Derivada& operator=(Derivada&&) noexcept;

  // Setting a variable checks, in order: not the derivative name
  // (NombreInterno), a valid identifier (IdentificadorNoValido), different
  // from the other variable (VariablesIguales). A refused name keeps the old
  // value and fills the error record.
  std::string VarDep() const { return varDep_; }
  void VarDep(const std::string& nombre);
  std::string VarInd() const { return varInd_; }
  void VarInd(const std::string& nombre);
  bool PasToPas() const { return pasToPas_; }
  void PasToPas(bool valor) { pasToPas_ = valor; }

  // The derivative of VarDep as text; "" on failure, with the error record
  // filled (a syntax error passes the checker's record on unchanged).
  std::string Derivar(const std::string& ecuacion);

  // The recorded steps, 1 to Pasos(); any other index gives "".
  int Pasos() const { return static_cast<int>(pasos_.size()); }
  std::string Paso(int i) const;

  std::int32_t ErrNumber() const { return errNumber_; }
  int ErrLin() const { return errLin_; }
  int ErrCol() const { return errCol_; }
  int ErrLen() const { return errLen_; }
  std::string ErrDesc() const { return errDesc_; }

private:
  void FijaVariable(std::string& destino, const std::string& nombre, const std::string& otra);
  std::string NombreDifer() const;
  void Registra(std::int32_t numero, std::string descripcion, int lin = -1, int col = 0,
                int len = 0);
  void Falla(const ErrorMotor& error);
  void Empieza();
  bool PreparaEcuacion(const std::string& ecuacion, std::string& expr);
  std::string MarcaEcuacion(const std::string& expr);
  void ResuelveMarcas(std::string& w);
  std::string Despeja(const std::string& w);
  void AgregaPaso(const std::string& texto);
  std::string ResuelveNivel(const std::string& u) const;
  std::string ReglaFuncion(const std::string& u) const;
  bool Depende(std::string_view texto) const;

  std::string varDep_ = "Y", varInd_ = "X";
  std::string depMayus_, indMayus_; // the names as the rules compare them, set by Derivar
  bool pasToPas_ = false;
  std::vector<std::string> pasos_;
  std::size_t tamPasos_ = 0; // bytes of the steps so far
  std::unique_ptr<CalcSimbolic> calc_;
  std::unique_ptr<SintaxExp> sintaxis_;
  std::int32_t errNumber_ = 0;
  int errLin_ = -1, errCol_ = 0, errLen_ = 0;
  std::string errDesc_;
};
