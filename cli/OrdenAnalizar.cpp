#include <iostream>
#include <nlohmann/json.hpp>

#include "analysis/Analisis.h"
#include "cli/Lote.h"
#include "cli/Opciones.h"
#include "cli/Ordenes.h"

namespace {

struct Forma {
  bool latex = false, json = false;
  std::string d1, d2; // "dy/dx" and "d2y/dx2" with the variables in force
};

std::string Texto(const ResultadoAnalisis& r, const Forma& f) {
  std::string out = f.d1 + " = " + r.derivada + '\n' + f.d2 + " = " + r.segunda + '\n';
  if (f.latex)
    out += "LaTeX: " + r.latexEcuacion + '\n' + "LaTeX " + f.d1 + ": " + r.latexDerivada + '\n' +
           "LaTeX " + f.d2 + ": " + r.latexSegunda + '\n';
  if (r.conPunto)
    out += "en (" + r.x0 + ", " + r.y0 + "):\n  " + f.d1 + " = " + r.pendiente + "\n  " + f.d2 +
           " = " + r.segundaEnPunto + "\n  tangente: " + r.tangente + "\n  normal: " + r.normal +
           '\n';
  return out;
}

// Every field under a stable name, for scripts.
std::string Json(const ResultadoAnalisis& r) {
  nlohmann::ordered_json j;
  if (!r.error.empty()) {
    j["error"] = r.error;
    return j.dump();
  }
  j["ecuacion"] = r.ecuacion;
  j["explicita"] = r.explicita;
  j["derivada"] = r.derivada;
  j["segunda"] = r.segunda;
  j["latex"] = {
      {"ecuacion", r.latexEcuacion}, {"derivada", r.latexDerivada}, {"segunda", r.latexSegunda}};
  if (r.conPunto)
    j["punto"] = {{"x", r.x0},
                  {"y", r.y0},
                  {"derivada", r.pendiente},
                  {"derivada_decimal", r.pendienteDecimal},
                  {"segunda", r.segundaEnPunto},
                  {"segunda_decimal", r.segundaDecimal},
                  {"tangente", r.tangente},
                  {"normal", r.normal}};
  return j.dump();
}

} // namespace

// mirkal-cli analizar [--vd N --vi N] [--en x=1,y=2] [--latex] [--json] [--lote] ECUACIÓN
int OrdenAnalizar(const Argumentos& args) {
  ArgumentosLeidos leidos;
  const std::string error = LeeArgumentos(args,
                                          {{"--vd", "", true},
                                           {"--vi", "", true},
                                           {"--en", "", true},
                                           {"--latex"},
                                           {"--json"},
                                           {"--lote"}},
                                          leidos);
  if (!error.empty()) return ErrorDeUso(error);
  Analisis analisis;
  std::string punto;
  Forma forma;
  for (const OpcionDada& o : leidos.opciones) {
    if (o.larga == "--vd") analisis.VarDep(o.valor);
    if (o.larga == "--vi") analisis.VarInd(o.valor);
    if (o.larga == "--en") punto = o.valor;
    forma.latex |= o.larga == "--latex";
    forma.json |= o.larga == "--json";
  }
  forma.d1 = "d" + analisis.VarDep() + "/d" + analisis.VarInd();
  forma.d2 = "d2" + analisis.VarDep() + "/d" + analisis.VarInd() + "2";
  const std::vector<std::string>& pos = leidos.posicionales;
  if (leidos.Tiene("--lote")) {
    if (!pos.empty()) return ErrorDeUso("--lote lee las ecuaciones de la entrada estándar");
    for (std::string linea; std::getline(std::cin, linea);) {
      if (!linea.empty() && linea.back() == '\r') linea.pop_back();
      const ResultadoAnalisis r = analisis.Analiza(linea, punto);
      if (forma.json)
        std::cout << Json(r) << '\n';
      else
        std::cout << (r.error.empty() ? Texto(r, forma) : "ERROR: " + r.error + '\n')
                  << kSeparadorLote << '\n';
    }
    return kSalidaBien;
  }
  if (pos.empty()) return ErrorDeUso("falta la ECUACIÓN que se ha de analizar");
  if (pos.size() > 1) return ErrorDeUso("sobra un argumento: " + pos[1]);
  const ResultadoAnalisis r = analisis.Analiza(pos[0], punto);
  if (forma.json) {
    std::cout << Json(r) << '\n';
    return r.error.empty() ? kSalidaBien : kSalidaRechazo;
  }
  if (!r.error.empty()) return Rechazo(-1, 0, r.error);
  std::cout << Texto(r, forma);
  return kSalidaBien;
}
