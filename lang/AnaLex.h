#pragma once
// AnaLex: the one tokenizer of the system. It knows no vocabulary of its own:
// each client gives it the codes of the token classes and registers its own
// keywords and operators, then calls SgtToken until the end-of-file code.
//
// The text is held as Windows-1252 bytes (one byte, one character, one
// column); it enters and leaves as UTF-8. Nothing in SgtToken fails: every
// byte of any input ends in some token. Configuration mistakes (a bad
// keyword, a duplicate operator, a bad separator, a restore on an empty
// stack) are reported through Avisa and the call is ignored.

#include <array>
#include <string>
#include <string_view>
#include <vector>

class AnaLex {
public:
  // Ends of line skipped like blanks (never returned).
  bool IgnFL() const { return ignFL_; }
  void IgnFL(bool valor) { ignFL_ = valor; }
  // Comments skipped like blanks (never returned).
  bool IgnCom() const { return ignCom_; }
  void IgnCom(bool valor) { ignCom_ = valor; }

  // Writing starts a new reading at line 0, column 0 and empties the stack.
  std::string Buffer() const;
  void Buffer(const std::string& texto);

  // The same, for engine code that already holds Windows-1252 bytes (the
  // calculator's texts, the document's cells): no conversion.
  void BufferBytes(std::string bytes);
  std::string_view LexBytes() const {
    return lexIni_ >= 0 ? std::string_view(buf_).substr(static_cast<std::size_t>(lexIni_),
                                                        static_cast<std::size_t>(lexLen_))
                        : std::string_view(lexPropio_);
  }

  int PtrBuffer() const { return ptr_; }
  int Lin() const { return lin_; }
  int Col() const { return col_; }
  std::string Lex() const;
  std::string LexCad() const;
  // Number of characters of Lex, without converting it.
  int LongLex() const { return lexLen_; }

  // "46" for the point, "44" for the comma. Only "." and "," are accepted.
  std::string PuntoDec() const;
  void PuntoDec(const std::string& separador);

  int IndCom() const { return indCom_; }
  void IndCom(int c) { indCom_ = c; }
  int IndCad() const { return indCad_; }
  void IndCad(int c) { indCad_ = c; }
  int IndNum() const { return indNum_; }
  void IndNum(int c) { indNum_ = c; }
  int IndId() const { return indId_; }
  void IndId(int c) { indId_ = c; }
  int IndPC() const { return indPC_; }
  void IndPC(int c) { indPC_ = c; }
  int IndOpr() const { return indOpr_; }
  void IndOpr(int c) { indOpr_ = c; }
  int IndFL() const { return indFL_; }
  void IndFL(int c) { indFL_ = c; }
  int IndFA() const { return indFA_; }
  void IndFA(int c) { indFA_ = c; }
  int IndDesc() const { return indDesc_; }
  void IndDesc(int c) { indDesc_ = c; }

  int IndCls() const { return indCls_; }
  int UltInd() const { return ultInd_; }
  int AntInd() const { return antInd_; }

  void AñadePC(int codigo, const std::string& palabra);
  void AñadeOpr(int codigo, const std::string& texto);

  // Undoes the last SgtToken (AntInd is not restored).
  void Restaura();
  int SgtToken();
  // Look-ahead: whether the next token has this class; consumes nothing.
  bool VieneIndCls(int cls);
  // Consumes the next token only if it has this code.
  bool AvanzaToken(int codigo);
  // Look-ahead: whether the next token has this code; consumes nothing.
  bool VieneToken(int codigo);

  static constexpr int kMaxEstados = 16;

private:
  struct Entrada {
    std::string texto; // Windows-1252 bytes
    int codigo;
  };
  struct Estado {
    int ptr, lin, col, ultInd, indCls, lexIni, lexLen;
    std::string lexCad;
  };

  void GuardaEstado();
  void SaltaBlancos();
  bool EsContinuacion(int pos) const;
  bool LeeCadena();
  int LongNumero() const;
  int LongOperador(int& codigo) const;
  void TomaIdentificador();
  bool EsPalabraClave(int& codigo) const;
  void Toma(int longitud);

  std::string buf_;
  int ptr_ = 0, lin_ = 0, col_ = 0;
  // Lex is a stretch of the buffer (lexIni_ >= 0), so that saving a state
  // copies no text; a Lex read from an earlier buffer, which survives a new
  // Buffer until the next token, is kept in lexPropio_ (lexIni_ -1). Only the
  // first state saved after a Buffer can refer to it.
  int lexIni_ = 0, lexLen_ = 0;
  std::string lexPropio_;
  std::string lexCad_;
  unsigned char puntoDec_ = '.';
  bool ignFL_ = false, ignCom_ = true;
  int indCom_ = 0, indCad_ = 0, indNum_ = 0, indId_ = 0, indPC_ = 0, indOpr_ = 0, indFL_ = 0,
      indFA_ = 0, indDesc_ = 0;
  int indCls_ = 0, ultInd_ = 0, antInd_ = 0;
  std::vector<Entrada> palabras_;         // sorted by text, lower case
  std::size_t palabraMax_ = 0;            // the length of the longest keyword
  std::array<bool, 256> iniciaPalabra_{}; // the first bytes of the keywords
  std::vector<Entrada> operadores_;       // sorted by text
  // The operators that start with each byte: [first, second) of operadores_.
  std::array<std::pair<int, int>, 256> porPrimero_{};
  // The state stack as a ring: pushing onto a full stack overwrites the
  // oldest state instead of moving the others down.
  std::array<Estado, kMaxEstados> pila_;
  int cima_ = 0;    // where the next state goes
  int estados_ = 0; // how many states the stack holds
};
