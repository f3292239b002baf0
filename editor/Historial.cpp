#include "editor/Historial.h"

std::string Historial::Palabra(int tipo) {
  switch (tipo) {
  case 0:
  case 3:
  case 5:
  case 7:
  case 9:
  case 13:
    return "escribir";
  case 1:
  case 2:
  case 4:
  case 6:
  case 11:
  case 12:
    return "eliminar";
  case 8:
    return "cortar";
  case 10:
    return "pegar";
  case 16:
  case 17:
    return "reemplazar";
  default:
    return ""; // 14 and 15: breaking a row has no word
  }
}

void Historial::NuevoPasoHistorial() {
  if (ult_ < kMaxRegistros - 1) {
    ++ult_;
    registros_.resize(static_cast<std::size_t>(ult_) + 1);
    ++pos_;
  } else if (pos_ < ult_) {
    ++pos_;
  } else {
    registros_.erase(registros_.begin()); // the oldest record gives way
    registros_.emplace_back();
  }
}

// Whether `nuevo` continues `previo`, and if so merges it in: typing goes on
// where the last typed text ended, Backspace deletes just before what it
// deleted last, Delete deletes again at the same place.
bool Historial::Continua(Cambio& previo, const Cambio& nuevo) {
  if (previo.tipo != nuevo.tipo || previo.pasos.size() != 1 || nuevo.pasos.size() != 1)
    return false;
  Reemplazo& p = previo.pasos.front();
  const Reemplazo& n = nuevo.pasos.front();
  switch (nuevo.tipo) {
  case kEscribir:
    if (!(n.pos == Documento::Fin(p.pos, p.puesto))) return false;
    p.quitado += n.quitado;
    p.puesto += n.puesto;
    return true;
  case kRetroceso:
    if (!p.puesto.empty() || !n.puesto.empty() || !(Documento::Fin(n.pos, n.quitado) == p.pos))
      return false;
    p.quitado = n.quitado + p.quitado;
    p.pos = n.pos;
    return true;
  case kSuprimir:
    if (!p.puesto.empty() || !n.puesto.empty() || !(n.pos == p.pos)) return false;
    p.quitado += n.quitado;
    return true;
  default:
    return false;
  }
}

void Historial::RegistraCambio(const Cambio& cambio) {
  ult_ = pos_; // a new change discards what could be redone
  registros_.resize(static_cast<std::size_t>(ult_ + 1));
  if (pos_ >= 0 && Continua(registros_[static_cast<std::size_t>(pos_)], cambio)) return;
  NuevoPasoHistorial();
  registros_[static_cast<std::size_t>(pos_)] = cambio;
}

const Cambio* Historial::ADeshacer() const {
  return pos_ >= 0 ? &registros_[static_cast<std::size_t>(pos_)] : nullptr;
}

const Cambio* Historial::ARehacer() const {
  return pos_ < ult_ ? &registros_[static_cast<std::size_t>(pos_ + 1)] : nullptr;
}

std::string Historial::TextoDeshacer() const {
  if (pos_ < 0) return "No se puede deshacer";
  return "Deshacer " + Palabra(registros_[static_cast<std::size_t>(pos_)].tipo);
}

std::string Historial::TextoRehacer() const {
  if (pos_ >= ult_) return "No se puede rehacer";
  return "Rehacer " + Palabra(registros_[static_cast<std::size_t>(pos_ + 1)].tipo);
}

void Historial::AñadePaso(const Reemplazo& paso) {
  ult_ = pos_;
  registros_.resize(static_cast<std::size_t>(ult_ + 1));
  if (pos_ >= 0) registros_[static_cast<std::size_t>(pos_)].pasos.push_back(paso);
}
