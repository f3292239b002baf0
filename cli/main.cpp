// mirkal-cli: the engines of Mirkal for scripts and terminals.

#include <iostream>
#include <string>

#include "cli/Ordenes.h"

namespace {

constexpr const char* kUso =
    "Uso: mirkal-cli ORDEN [opciones] ...\n"
    "\n"
    "Órdenes:\n"
    "  derivar [opciones] [ECUACIÓN]\n"
    "      Deriva la ecuación (o el documento leído de la entrada estándar) e\n"
    "      imprime exactamente lo que la orden Derivar añade al documento.\n"
    "      -f, --archivo ARCHIVO  lee el documento de ARCHIVO (Windows-1252 o UTF-8)\n"
    "      --escribir             con -f: añade el resultado al archivo y lo guarda\n"
    "                             en la misma codificación\n"
    "      --pasos                escribe cada paso (DerivarPP)\n"
    "      --vd NOMBRE, --vi NOMBRE  variables dependiente e independiente (y, x)\n"
    "      --cifras N             cifras de redondeo, de 0 a 300 (5)\n"
    "      --fracciones | --decimales  números como fracciones (por omisión) o redondeados\n"
    "      --lote                 cada línea de la entrada es una ecuación; una línea\n"
    "                             de salida por cada una: la derivada o \"ERROR: ...\";\n"
    "                             con --pasos, los pasos y la derivada, y \"----\"\n"
    "      -j, --hilos N          --lote en N hilos (por omisión, uno por núcleo)\n"
    "  formato [--fracciones] [--cifras N] TEXTO\n"
    "      Reescribe los números del texto redondeados (5 cifras) o como fracciones.\n"
    "  sintaxis [--ecuacion | --desigualdad] TEXTO\n"
    "      Comprueba la sintaxis de una expresión (o de una ecuación o\n"
    "      desigualdad) e imprime su forma normalizada.\n"
    "  simplificar [--numerico] [--constantes] EXPRESIÓN\n"
    "      Simplifica la expresión. --numerico evalúa las partes numéricas (y\n"
    "      sustituye las constantes); --constantes sustituye Pi y e por su valor.\n"
    "  despejar EXPRESIÓN VARIABLE\n"
    "      Resuelve EXPRESIÓN = 0 para VARIABLE si tiene la forma a*VARIABLE^n + b.\n"
    "  analizar [opciones] ECUACIÓN\n"
    "      dy/dx en su forma más simple y d2y/dx2; con --en x=3,y=4, sus valores\n"
    "      en ese punto y las rectas tangente y normal.\n"
    "      --vd NOMBRE, --vi NOMBRE  variables dependiente e independiente (y, x)\n"
    "      --en PUNTO             valores de las variables: x=3,y=4 (en una\n"
    "                             ecuación explícita basta x)\n"
    "      --latex                también en LaTeX\n"
    "      --json                 cada dato con su nombre, en JSON\n"
    "      --lote                 una ecuación por línea de la entrada; \"----\" tras\n"
    "                             cada una (con --json, un objeto por línea)\n"
    "\n"
    "Un argumento que empiece por un solo - es un texto, no una opción (salvo -f\n"
    "en derivar): \"-y = x^3\" o \"-0.5\" se escriben tal cual. Uno que empiece por\n"
    "-- se escribe detrás de --, que termina las opciones.\n"
    "\n"
    "  mirkal-cli --help      muestra esta ayuda\n"
    "  mirkal-cli --version   muestra la versión\n"
    "\n"
    "Estado de salida: 0 correcto, 1 entrada rechazada, 2 uso incorrecto,\n"
    "3 fallo de lectura o escritura de un archivo.\n";

} // namespace

int ErrorDeUso(const std::string& motivo) {
  std::cerr << "mirkal-cli: " << motivo << "\n"
            << "Pruebe 'mirkal-cli --help' para más información.\n";
  return kSalidaUso;
}

int Rechazo(int linea, int columna, const std::string& descripcion) {
  if (linea >= 0) std::cerr << "línea " << linea + 1 << ", columna " << columna + 1 << ": ";
  std::cerr << descripcion << '\n';
  return kSalidaRechazo;
}

int FalloDeArchivo(const std::string& origen, const std::string& motivo) {
  std::cerr << "mirkal-cli: " << origen << ": " << motivo << '\n';
  return kSalidaArchivo;
}

int main(int argc, char** argv) {
  Argumentos args(argv + 1, argv + argc);
  if (args.empty()) return ErrorDeUso("falta la orden");
  const std::string orden = args.front();
  args.erase(args.begin());
  if (orden == "--help" || orden == "-h") {
    std::cout << kUso;
    return kSalidaBien;
  }
  if (orden == "--version") {
    std::cout << "mirkal-cli " << MIRKAL_VERSION << '\n';
    return kSalidaBien;
  }
  if (orden == "sintaxis") return OrdenSintaxis(args);
  if (orden == "simplificar") return OrdenSimplificar(args);
  if (orden == "despejar") return OrdenDespejar(args);
  if (orden == "derivar") return OrdenDerivar(args);
  if (orden == "formato") return OrdenFormato(args);
  if (orden == "analizar") return OrdenAnalizar(args);
  return ErrorDeUso("orden desconocida: " + orden);
}
