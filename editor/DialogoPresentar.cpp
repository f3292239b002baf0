#include "editor/DialogoPresentar.h"

#include "editor/ValoresSeguros.h"
#include "lang/EnteroAcotado.h"

namespace {

std::optional<int> Tabulacion(const std::string& texto) {
  return EnteroAcotado(texto, kMinEspTab, kMaxEspTab);
}

} // namespace

ValoresPresentar AbrePresentar(const Presentacion& p) {
  ValoresPresentar v{p.Ajustes(), std::to_string(p.GetEspTab())};
  v.ColorLetra = ColorSeguro(v.ColorLetra, kDefColorLetra);
  v.ColorLetraSel = ColorSeguro(v.ColorLetraSel, kDefColorLetraSel);
  v.ColorFondoSel = ColorSeguro(v.ColorFondoSel, kDefColorFondoSel);
  v.ColorComment = ColorSeguro(v.ColorComment, kDefColorComment);
  v.ColorFondoEditor = ColorSeguro(v.ColorFondoEditor, kDefColorFondoEditor);
  return v;
}

std::optional<std::string> CompruebaTab(const std::string& txtTab) {
  if (Tabulacion(txtTab)) return std::nullopt;
  return kMsjEspTab;
}

std::optional<std::string> AceptaPresentar(Presentacion& p, const ValoresPresentar& v) {
  const auto tab = Tabulacion(v.txtTab);
  if (!tab) return kMsjEspTab;
  p.SetTamFuente(v.TamFuente);
  p.SetEspTab(*tab);
  p.SetColorLetra(v.ColorLetra);
  p.SetScrollBars(v.ScrollBars);
  p.SetColorLetraSel(v.ColorLetraSel);
  p.SetColorFondoSel(v.ColorFondoSel);
  p.SetColorComment(v.ColorComment);
  p.SetColorFondoEditor(v.ColorFondoEditor);
  return std::nullopt;
}
