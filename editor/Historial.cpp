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
    // The states move down one place; the one before the oldest record is
    // gone for good.
    limpio_ = limpio_ >= 0 ? limpio_ - 1 : kInalcanzable;
  }
}

void Historial::CortaRehacer() {
  ult_ = pos_;
  registros_.resize(static_cast<std::size_t>(ult_ + 1));
  if (limpio_ > pos_) limpio_ = kInalcanzable;
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
  CortaRehacer(); // a new change discards what could be redone
  // The saved record is not continued: undoing the new typing must come
  // back to the saved text.
  if (pos_ >= 0 && pos_ != limpio_ && Continua(registros_[static_cast<std::size_t>(pos_)], cambio))
    return;
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
  CortaRehacer();
  if (pos_ < 0) return;
  registros_[static_cast<std::size_t>(pos_)].pasos.push_back(paso);
  if (limpio_ == pos_) limpio_ = kInalcanzable; // the saved text is no longer this record's
}
