#pragma once
// The room left on the calling thread's stack. The recursive readers bound
// their nesting by it as well as by a count, so that a deep but legitimate
// text is read wherever the stack allows it, and refused with the nesting
// message where it does not: never a crash, whatever the thread's stack size
// or the build's frame sizes.

#include <cstddef>

// Enough for whatever a reader does between two nesting checks, and for
// unwinding an error: far more than any of them needs.
inline constexpr std::size_t kReservaPila = 256 * 1024;

// Whether more than `reserva` bytes of stack are left below the caller.
bool QuedaPila(std::size_t reserva = kReservaPila);
