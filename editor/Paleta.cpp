#include "editor/Paleta.h"

namespace {

constexpr std::array<std::uint32_t, kNumColores> kPaleta{
    0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000, 0xC0C0C0,
    0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};

} // namespace

std::uint32_t ColorPaleta(int indice) {
  return EsColor(indice) ? kPaleta[static_cast<std::size_t>(indice)] : 0x000000;
}
