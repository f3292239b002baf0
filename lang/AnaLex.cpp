#include "lang/AnaLex.h"

#include <algorithm>

#include "lang/Aviso.h"
#include "lang/Caracteres.h"
#include "lang/Cp1252.h"

namespace {

constexpr unsigned char kCR = 13, kLF = 10;
constexpr unsigned char kComentario = '\'', kDelimitador = '"', kContinuacion = '_';

bool EsBlanco(unsigned char b) { return b == ' ' || b == '\t'; }

bool EsCarOpr(unsigned char b) {
  if (b == kComentario || b == kDelimitador || b == kContinuacion) return false;
  return (b >= 33 && b <= 47) || (b >= 58 && b <= 64) || (b >= 91 && b <= 96) ||
         (b >= 123 && b <= 126) || b == 183; // 183: the middle dot
}

std::string Entrecomillado(const std::string& bytes) {
  std::string r(1, '"');
  r += Cp1252AUtf8(bytes);
  r += '"';
  return r;
}

// Where `texto` stands, or would stand, in a vocabulary list sorted by text.
template <class Lista> auto Lugar(Lista& lista, const std::string& texto) {
  return std::lower_bound(lista.begin(), lista.end(), texto,
                          [](const auto& e, const std::string& t) { return e.texto < t; });
}

} // namespace

std::string AnaLex::Buffer() const { return Cp1252AUtf8(buf_); }

void AnaLex::Buffer(const std::string& texto) { BufferBytes(Utf8ACp1252(texto)); }

void AnaLex::BufferBytes(std::string bytes) {
  if (lexIni_ >= 0) {
    lexPropio_ = std::string(LexBytes());
    lexIni_ = -1;
  }
  buf_ = std::move(bytes);
  ptr_ = lin_ = col_ = 0;
  estados_ = 0;
}

std::string AnaLex::Lex() const { return Cp1252AUtf8(LexBytes()); }
std::string AnaLex::LexCad() const { return Cp1252AUtf8(lexCad_); }

std::string AnaLex::PuntoDec() const { return std::to_string(puntoDec_); }

void AnaLex::PuntoDec(const std::string& separador) {
  if (separador != "." && separador != ",") {
    Avisa(".AnaLex.PuntoDec", "El separador decimal sólo puede ser el punto o la coma.");
    return;
  }
  puntoDec_ = static_cast<unsigned char>(separador[0]);
}

void AnaLex::AñadePC(int codigo, const std::string& palabra) {
  const std::string p = EnMinusculas(Utf8ACp1252(palabra));
  if (!EsIdentificador(p)) {
    Avisa(".AnaLex.AñadePC", "La palabra clave " + Entrecomillado(p) +
                                 " no posee la sintaxis de los identificadores.");
    return;
  }
  const auto pos = Lugar(palabras_, p);
  if (pos != palabras_.end() && pos->texto == p) {
    Avisa(".AnaLex.AñadePC",
          "La palabra clave " + Entrecomillado(p) + " ya existe en la lista de palabras clave.");
    return;
  }
  palabras_.insert(pos, Entrada{p, codigo});
  palabraMax_ = std::max(palabraMax_, p.size());
  iniciaPalabra_[static_cast<unsigned char>(p[0])] = true;
}

void AnaLex::AñadeOpr(int codigo, const std::string& texto) {
  const std::string t = Utf8ACp1252(texto);
  const bool bienFormado = !t.empty() && std::all_of(t.begin(), t.end(), [](char c) {
    return EsCarOpr(static_cast<unsigned char>(c));
  });
  if (!bienFormado) {
    Avisa(".AnaLex.AñadeOpr",
          "El Operador " + Entrecomillado(t) + " no posee la sintaxis de los operadores.");
    return;
  }
  const auto pos = Lugar(operadores_, t);
  if (pos != operadores_.end() && pos->texto == t) {
    Avisa(".AnaLex.AñadeOpr",
          "El Operador " + Entrecomillado(t) + " ya existe en la lista de operadores.");
    return;
  }
  operadores_.insert(pos, Entrada{t, codigo});
  porPrimero_.fill({0, 0});
  for (int i = static_cast<int>(operadores_.size()) - 1; i >= 0; --i) {
    auto& rango = porPrimero_[static_cast<unsigned char>(operadores_[i].texto[0])];
    if (rango.second == 0) rango.second = i + 1;
    rango.first = i;
  }
}

void AnaLex::GuardaEstado() {
  // Full stack: the oldest state gives way so that the newest always fits.
  Estado& e = pila_[static_cast<std::size_t>(cima_)];
  e.ptr = ptr_, e.lin = lin_, e.col = col_, e.ultInd = ultInd_, e.indCls = indCls_;
  e.lexIni = lexIni_, e.lexLen = lexLen_;
  if (!e.lexCad.empty() || !lexCad_.empty()) e.lexCad = lexCad_;
  cima_ = (cima_ + 1) % kMaxEstados;
  if (estados_ < kMaxEstados) ++estados_;
}

void AnaLex::Restaura() {
  if (estados_ == 0) {
    Avisa(".AnaLex", "No hay estados en la pila del analizador léxico.");
    return;
  }
  cima_ = (cima_ + kMaxEstados - 1) % kMaxEstados;
  --estados_;
  Estado& e = pila_[static_cast<std::size_t>(cima_)];
  ptr_ = e.ptr, lin_ = e.lin, col_ = e.col, ultInd_ = e.ultInd, indCls_ = e.indCls;
  lexIni_ = e.lexIni, lexLen_ = e.lexLen;
  lexCad_.swap(e.lexCad);
}

// " _" followed by an end of line joins two lines.
bool AnaLex::EsContinuacion(int pos) const {
  const int n = static_cast<int>(buf_.size());
  return pos > 0 && EsBlanco(static_cast<unsigned char>(buf_[pos - 1])) && pos + 1 < n &&
         static_cast<unsigned char>(buf_[pos + 1]) == kCR;
}

void AnaLex::SaltaBlancos() {
  const int n = static_cast<int>(buf_.size());
  auto pasaFinDeLinea = [&] {
    if (ptr_ < n && static_cast<unsigned char>(buf_[ptr_]) == kCR) ++ptr_;
    if (ptr_ < n && static_cast<unsigned char>(buf_[ptr_]) == kLF) ++ptr_;
    ++lin_;
    col_ = 0;
  };
  while (ptr_ < n) {
    const auto b = static_cast<unsigned char>(buf_[ptr_]);
    if (EsBlanco(b)) {
      ++ptr_, ++col_;
    } else if (b == kCR) {
      if (!ignFL_) return;
      pasaFinDeLinea();
    } else if (b == kComentario) {
      if (!ignCom_) return;
      while (ptr_ < n && static_cast<unsigned char>(buf_[ptr_]) != kCR)
        ++ptr_, ++col_;
    } else if (b == kContinuacion && EsContinuacion(ptr_)) {
      ++ptr_;
      pasaFinDeLinea();
    } else {
      return;
    }
  }
}

bool AnaLex::LeeCadena() {
  const int n = static_cast<int>(buf_.size());
  std::string contenido;
  for (int i = ptr_ + 1; i < n;) {
    const auto b = static_cast<unsigned char>(buf_[i]);
    if (b == kCR) return false;
    if (b != kDelimitador) {
      contenido += static_cast<char>(b);
      ++i;
    } else if (i + 1 < n && static_cast<unsigned char>(buf_[i + 1]) == kDelimitador) {
      contenido += static_cast<char>(kDelimitador);
      i += 2;
    } else {
      lexCad_ = std::move(contenido);
      Toma(i + 1 - ptr_);
      return true;
    }
  }
  return false;
}

// The number state machine: returns how many bytes from PtrBuffer form the
// longest accepted number (0: none). States: 0 start, 1 integer digits,
// 2 after separator, 3 fraction digits, 4 after exponent letter, 5 after
// exponent sign, 6 exponent digits.
int AnaLex::LongNumero() const {
  const int n = static_cast<int>(buf_.size());
  const auto b0 = static_cast<unsigned char>(buf_[ptr_]);
  if (!EsDigito(b0) && b0 != puntoDec_) return 0; // what starts no number, at once
  int estado = 0, aceptado = 0;
  for (int i = ptr_; i < n; ++i) {
    const auto b = static_cast<unsigned char>(buf_[i]);
    const bool digito = EsDigito(b);
    const bool separador = b == puntoDec_;
    const bool exponente = b == 'D' || b == 'E' || b == 'd' || b == 'e';
    const bool signo = b == '+' || b == '-';
    int sigue = -1;
    switch (estado) {
    case 0:
      sigue = digito ? 1 : separador ? 2 : -1;
      break;
    case 1:
      sigue = digito ? 1 : separador ? 2 : exponente ? 4 : -1;
      break;
    case 2:
      sigue = digito ? 3 : -1;
      break;
    case 3:
      sigue = digito ? 3 : exponente ? 4 : -1;
      break;
    case 4:
      sigue = digito ? 6 : signo ? 5 : -1;
      break;
    case 5:
      sigue = digito ? 6 : -1;
      break;
    case 6:
      sigue = digito ? 6 : -1;
      break;
    }
    if (sigue < 0) break;
    estado = sigue;
    if (digito) aceptado = i - ptr_ + 1;
  }
  return aceptado;
}

// Longest operator at PtrBuffer; blanks may stand between an operator's
// characters. Of equal lengths, the earlier entry of the sorted list wins.
int AnaLex::LongOperador(int& codigo) const {
  const int n = static_cast<int>(buf_.size());
  const auto [desde, hasta] = porPrimero_[static_cast<unsigned char>(buf_[ptr_])];
  int mejor = 0;
  for (auto e = operadores_.begin() + desde; e != operadores_.begin() + hasta; ++e) {
    int i = ptr_;
    bool casa = true;
    for (std::size_t j = 0; j < e->texto.size() && casa; ++j) {
      if (j > 0)
        while (i < n && EsBlanco(static_cast<unsigned char>(buf_[i])))
          ++i;
      casa = i < n && buf_[i] == e->texto[j];
      ++i;
    }
    if (casa && i - ptr_ > mejor) {
      mejor = i - ptr_;
      codigo = e->codigo;
    }
  }
  return mejor;
}

void AnaLex::Toma(int longitud) {
  lexIni_ = ptr_;
  lexLen_ = longitud;
  ptr_ += longitud;
  col_ += longitud;
}

// identificador ::= inicio-id { caracter-id | "_" }
void AnaLex::TomaIdentificador() {
  const int n = static_cast<int>(buf_.size());
  int largo = 1;
  while (ptr_ + largo < n) {
    const auto c = static_cast<unsigned char>(buf_[ptr_ + largo]);
    if (!EsCarPalabra(c)) break;
    ++largo;
  }
  Toma(largo);
}

// Whether Lex is a registered keyword, in any case; if so, its code.
bool AnaLex::EsPalabraClave(int& codigo) const {
  // Every name of a text is looked up: most are answered by their length or
  // their first byte alone.
  const std::string_view lex = LexBytes();
  if (lex.size() > palabraMax_ ||
      !iniciaPalabra_[MinusculaCp1252(static_cast<unsigned char>(lex[0]))])
    return false;
  std::string clave(lex); // as long as a keyword: kept inside the string itself, mostly
  for (char& c : clave)
    c = static_cast<char>(MinusculaCp1252(static_cast<unsigned char>(c)));
  const auto pos = Lugar(palabras_, clave);
  if (pos == palabras_.end() || pos->texto != clave) return false;
  codigo = pos->codigo;
  return true;
}

int AnaLex::SgtToken() {
  antInd_ = ultInd_;
  GuardaEstado();
  SaltaBlancos();

  const int n = static_cast<int>(buf_.size());
  const auto b = ptr_ < n ? static_cast<unsigned char>(buf_[ptr_]) : 0;
  int clase, codigo = 0;
  bool registrado = false; // keywords and operators return their own code
  if (ptr_ < n && b == kCR && !ignFL_) {
    Toma(ptr_ + 1 < n && static_cast<unsigned char>(buf_[ptr_ + 1]) == kLF ? 2 : 1);
    ++lin_;
    col_ = 0;
    clase = indFL_;
  } else if (ptr_ < n && b == kComentario && !ignCom_) {
    const auto fin = buf_.find(static_cast<char>(kCR), ptr_);
    Toma(static_cast<int>(fin == std::string::npos ? n - ptr_ : fin - ptr_));
    clase = indCom_;
  } else if (ptr_ >= n) {
    Toma(0);
    clase = indFA_;
  } else if (b == kDelimitador && LeeCadena()) {
    clase = indCad_;
  } else if (const int largo = LongNumero(); largo > 0) {
    Toma(largo);
    clase = indNum_;
  } else if (EsInicioId(b)) {
    TomaIdentificador();
    registrado = EsPalabraClave(codigo);
    clase = registrado ? indPC_ : indId_;
  } else if (const int largo = LongOperador(codigo); largo > 0) {
    Toma(largo);
    clase = indOpr_;
    registrado = true;
  } else {
    Toma(1);
    clase = indDesc_;
  }
  indCls_ = clase;
  ultInd_ = registrado ? codigo : clase;
  return ultInd_;
}

bool AnaLex::VieneIndCls(int cls) {
  SgtToken();
  const bool viene = indCls_ == cls;
  Restaura();
  return viene;
}

bool AnaLex::AvanzaToken(int codigo) {
  if (SgtToken() == codigo) return true;
  Restaura();
  return false;
}

bool AnaLex::VieneToken(int codigo) {
  const bool viene = SgtToken() == codigo;
  Restaura();
  return viene;
}
