#include "lang/Pila.h"

#include <pthread.h>

#include <cstdint>

namespace {

// The lowest address of the calling thread's stack, asked once per thread;
// 0 when the system does not tell.
std::uintptr_t FondoDePila() {
  thread_local const std::uintptr_t fondo = [] {
    pthread_attr_t atributos;
    void* base = nullptr;
    std::size_t tam = 0;
    if (pthread_getattr_np(pthread_self(), &atributos) != 0) return std::uintptr_t{0};
    if (pthread_attr_getstack(&atributos, &base, &tam) != 0) base = nullptr;
    pthread_attr_destroy(&atributos);
    return reinterpret_cast<std::uintptr_t>(base);
  }();
  return fondo;
}

} // namespace

bool QuedaPila(std::size_t reserva) {
  const auto aqui = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
  const std::uintptr_t fondo = FondoDePila();
  return fondo == 0 || aqui < fondo || aqui - fondo > reserva;
}
