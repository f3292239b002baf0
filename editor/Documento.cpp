#include "editor/Documento.h"

#include <algorithm>

#include "lang/Cp1252.h"

namespace {

char Caracter(Celda c) { return static_cast<char>(c & 0xFF); }

Celda HazCelda(char c, int color) {
  return static_cast<Celda>(((color & 0xFF) << 8) | static_cast<unsigned char>(c));
}

} // namespace

void Documento::PonColorCelda(int fila, int col, int color) {
  Celda& c = filas_[Indice(fila)][static_cast<std::size_t>(col)];
  c = static_cast<Celda>((c & 0xFF) | ((color & 0xFF) << 8));
}

std::string Documento::BytesFila(int fila) const {
  const FilaCeldas& f = filas_[Indice(fila)];
  std::string s(f.size(), ' ');
  std::transform(f.begin(), f.end(), s.begin(), Caracter);
  return s;
}

std::string Documento::GetTextFila(int fila) const {
  if (fila < 0 || fila >= NumFilas()) return "";
  return Cp1252AUtf8(BytesFila(fila));
}

int Documento::LongSel() const {
  if (!haySel_) return 0;
  const Posicion a = InicioSel(), b = FinSel();
  if (a.fila == b.fila) return b.col - a.col;
  int largo = LongFila(a.fila) - a.col + 2;
  for (int f = a.fila + 1; f < b.fila; ++f)
    largo += LongFila(f) + 2;
  return largo + b.col;
}

std::string Documento::GetTextSel() const {
  if (!haySel_) return "";
  return Cp1252AUtf8(Bytes(InicioSel(), FinSel()));
}

std::string Documento::GetTextSelFil1() const {
  if (!haySel_) return "";
  const Posicion a = InicioSel(), b = FinSel();
  return Cp1252AUtf8(Bytes(a, a.fila == b.fila ? b : Posicion{a.fila, LongFila(a.fila)}));
}

std::string Documento::TextoDocumento() const {
  return Cp1252AUtf8(Bytes({0, 0}, {NumFilas() - 1, LongFila(NumFilas() - 1)}));
}

void Documento::SelectText(int fila, int col, int largo) {
  if (fila < 0 || fila >= NumFilas() || col < 0 || largo < 0 || col > LongFila(fila) ||
      col + largo > LongFila(fila))
    return;
  MueveCursor(fila, col + largo);
  if (largo > 0) FijaSeleccion({fila, col}, {fila, col + largo});
}

void Documento::MueveCursor(int fila, int col) {
  fila = std::clamp(fila, 0, NumFilas() - 1);
  cursor_ = {fila, std::clamp(col, 0, LongFila(fila))};
}

void Documento::FijaSeleccion(Posicion ancla, Posicion extremo) {
  sel1_ = ancla;
  sel2_ = extremo;
  haySel_ = !(ancla == extremo);
}

std::string Documento::Bytes(Posicion desde, Posicion hasta) const {
  std::string out;
  for (int f = desde.fila; f <= hasta.fila; ++f) {
    const FilaCeldas& fila = filas_[Indice(f)];
    const int ini = f == desde.fila ? desde.col : 0;
    const int fin = f == hasta.fila ? hasta.col : static_cast<int>(fila.size());
    for (int c = ini; c < fin; ++c)
      out += Caracter(fila[static_cast<std::size_t>(c)]);
    if (f < hasta.fila) out += "\r\n";
  }
  return out;
}

Posicion Documento::Fin(Posicion p, std::string_view bytes) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') {
      ++p.fila;
      p.col = 0;
      ++i;
    } else {
      ++p.col;
    }
  }
  return p;
}

Posicion Documento::Inserta(Posicion p, std::string_view bytes, int color) {
  FilaCeldas& fila = filas_[Indice(p.fila)];
  // The cells after the insertion point move to the end of the last new row.
  FilaCeldas cola(fila.begin() + p.col, fila.end());
  fila.resize(static_cast<std::size_t>(p.col));
  std::vector<FilaCeldas> nuevas;
  FilaCeldas* actual = &fila;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') {
      nuevas.emplace_back();
      actual = &nuevas.back();
      ++i;
    } else {
      actual->push_back(HazCelda(bytes[i], color));
    }
  }
  const Posicion fin{p.fila + static_cast<int>(nuevas.size()), static_cast<int>(actual->size())};
  actual->insert(actual->end(), cola.begin(), cola.end());
  filas_.insert(filas_.begin() + p.fila + 1, std::make_move_iterator(nuevas.begin()),
                std::make_move_iterator(nuevas.end()));
  return fin;
}

std::string Documento::Quita(Posicion desde, Posicion hasta) {
  std::string quitado = Bytes(desde, hasta);
  FilaCeldas& primera = filas_[Indice(desde.fila)];
  const FilaCeldas& ultima = filas_[Indice(hasta.fila)];
  FilaCeldas resto(ultima.begin() + hasta.col, ultima.end());
  primera.resize(static_cast<std::size_t>(desde.col));
  primera.insert(primera.end(), resto.begin(), resto.end());
  filas_.erase(filas_.begin() + desde.fila + 1, filas_.begin() + hasta.fila + 1);
  return quitado;
}

void Documento::Carga(const std::vector<std::string>& filas, int color) {
  filas_.assign(std::max<std::size_t>(filas.size(), 1), {});
  for (std::size_t i = 0; i < filas.size(); ++i) {
    filas_[i].reserve(filas[i].size());
    for (const char c : filas[i])
      filas_[i].push_back(HazCelda(c, color));
  }
  cursor_ = sel1_ = sel2_ = {0, 0};
  haySel_ = false;
}
