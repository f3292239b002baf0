#include "commands/ConfigDerivacion.h"

#include "lang/Caracteres.h"
#include "lang/Cp1252.h"
#include "lang/EnteroAcotado.h"

namespace {

// Rounding digits as the number formatter takes them.
std::optional<int> Cifras(const std::string& texto) { return EnteroAcotado(texto, 0, 300); }

bool Identificador(const std::string& nombre) { return EsIdentificador(Utf8ACp1252(nombre)); }

std::string Mayus(const std::string& texto) { return EnMayusculas(Utf8ACp1252(texto)); }

} // namespace

std::optional<FalloConfig> CompruebaConfig(const std::string& txtCRE, const std::string& txtVD,
                                           const std::string& txtVI) {
  // A variable may not take the shape of the derivative name that the other
  // box would make with it: "dy_dx" is the dependent variable's derivative
  // name when the independent one is x, and the independent one's when the
  // dependent one is y.
  const std::string vd = Mayus(txtVD), vi = Mayus(txtVI);
  const auto esNombreDifer = [](const std::string& nombre, const std::string& prefijo,
                                const std::string& sufijo) {
    return nombre.size() > prefijo.size() + sufijo.size() && nombre.rfind(prefijo, 0) == 0 &&
           nombre.compare(nombre.size() - sufijo.size(), sufijo.size(), sufijo) == 0;
  };
  if (!Cifras(txtCRE))
    return FalloConfig{CampoConfig::CifRed, "Se esperaba un número entre 0 y 300"};
  if (!Identificador(txtVD)) return FalloConfig{CampoConfig::VarDep, "Identificador no válido"};
  if (esNombreDifer(vd, "D", "_D" + vi))
    return FalloConfig{CampoConfig::VarDep, "Variable restringida para uso interno"};
  if (vd == vi)
    return FalloConfig{CampoConfig::VarDep,
                       "Las variables dependiente e independiente deben ser distintas"};
  if (!Identificador(txtVI)) return FalloConfig{CampoConfig::VarInd, "Identificador no válido"};
  if (esNombreDifer(vi, "D" + vd + "_D", ""))
    return FalloConfig{CampoConfig::VarInd, "Variable restringida para uso interno"};
  return std::nullopt;
}

ConfigDerivacion AceptaConfig(const std::string& txtCRE, const std::string& txtVD,
                              const std::string& txtVI, bool chkFracc) {
  return ConfigDerivacion{txtVD, txtVI, Cifras(txtCRE).value_or(5), chkFracc, true};
}
