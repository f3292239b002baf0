#pragma once
// The derivation settings of a run (the configuration dialog shows them and
// the commands read them), and the checks of the dialog's OK button. Nothing
// here is stored between runs.

#include <optional>
#include <string>

struct ConfigDerivacion {
  std::string VarDep = "y";
  std::string VarInd = "x";
  int CifRedExt = 5;    // rounding digits handed to the number formatter
  bool OutFracc = true; // numbers written as fractions
  bool Ok = false;      // the dialog has been closed with OK
};

// The box a refused value belongs to, so that the dialog can select it.
enum class CampoConfig { CifRed, VarDep, VarInd };

struct FalloConfig {
  CampoConfig campo;
  std::string mensaje;
};

// The OK button's six checks, in order; the first failure, or nothing. The
// texts are the boxes' contents as typed.
std::optional<FalloConfig> CompruebaConfig(const std::string& txtCRE, const std::string& txtVD,
                                           const std::string& txtVI);

// The settings the boxes stand for, once CompruebaConfig has accepted them.
ConfigDerivacion AceptaConfig(const std::string& txtCRE, const std::string& txtVD,
                              const std::string& txtVI, bool chkFracc);
