// mirkal-cli derivar and formato: the derivation commands of the editor and
// the number formatter, for scripts and terminals.

#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

#include "algebra/FormatNum.h"
#include "cli/Ordenes.h"
#include "commands/OrdenDerivar.h"
#include "lang/Cp1252.h"

namespace {

struct OpcionesDerivar {
  std::string archivo, ecuacion, vd = "y", vi = "x", cifras = "5";
  bool escribir = false, pasos = false, fracciones = true, lote = false, hayEcuacion = false;
};

// Reads an option's value; false (after reporting) when it is missing.
bool Valor(const Argumentos& args, std::size_t& i, std::string& destino) {
  if (i + 1 >= args.size()) {
    ErrorDeUso("falta el valor de " + args[i]);
    return false;
  }
  destino = args[++i];
  return true;
}

// Text typed at a terminal is UTF-8; a document file is Windows-1252.
std::string ComoUtf8(const std::string& bytes) {
  return EsUtf8Valido(bytes) ? bytes : Cp1252AUtf8(bytes);
}

bool LeeArchivo(const std::string& ruta, std::string& bytes) {
  std::ifstream f(ruta, std::ios::binary);
  if (!f) return false;
  bytes.assign(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>());
  return !f.bad();
}

// Writes the whole file anew through a temporary file beside it, so that a
// failed write never leaves the document half written.
bool EscribeArchivo(const std::string& ruta, const std::string& bytes) {
  const std::string temporal = ruta + ".mirkal-tmp";
  {
    std::ofstream f(temporal, std::ios::binary | std::ios::trunc);
    if (!f || !f.write(bytes.data(), static_cast<std::streamsize>(bytes.size())) || !f.flush()) {
      std::remove(temporal.c_str());
      return false;
    }
  }
  if (std::rename(temporal.c_str(), ruta.c_str()) != 0) {
    std::remove(temporal.c_str());
    return false;
  }
  return true;
}

int Lote(const ConfigDerivacion& config) {
  int salida = kSalidaBien;
  std::string linea;
  while (std::getline(std::cin, linea)) {
    if (!linea.empty() && linea.back() == '\r') linea.pop_back();
    if (linea.empty()) {
      std::cout << '\n';
      continue;
    }
    const SalidaDerivar r = DerivadaEnUnaLinea(ComoUtf8(linea), config);
    if (r.ErrNumber != 0) {
      std::cout << "ERROR: " << r.ErrDesc << '\n';
      salida = kSalidaRechazo;
    } else {
      std::cout << r.Texto() << '\n';
    }
  }
  return salida;
}

} // namespace

// mirkal-cli derivar [opciones] [ECUACIÓN]
int OrdenDerivar(const Argumentos& args) {
  OpcionesDerivar o;
  bool soloTexto = false;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (soloTexto || a.rfind("-", 0) != 0 || a == "-") {
      if (o.hayEcuacion) return ErrorDeUso("sobra un argumento: " + a);
      o.ecuacion = a;
      o.hayEcuacion = true;
    } else if (a == "--") {
      soloTexto = true;
    } else if (a == "-f" || a == "--archivo") {
      if (!Valor(args, i, o.archivo)) return kSalidaUso;
    } else if (a == "--vd") {
      if (!Valor(args, i, o.vd)) return kSalidaUso;
    } else if (a == "--vi") {
      if (!Valor(args, i, o.vi)) return kSalidaUso;
    } else if (a == "--cifras") {
      if (!Valor(args, i, o.cifras)) return kSalidaUso;
    } else if (a == "--escribir") {
      o.escribir = true;
    } else if (a == "--pasos") {
      o.pasos = true;
    } else if (a == "--fracciones") {
      o.fracciones = true;
    } else if (a == "--decimales") {
      o.fracciones = false;
    } else if (a == "--lote") {
      o.lote = true;
    } else {
      return ErrorDeUso("opción desconocida: " + a);
    }
  }
  if (const auto fallo = CompruebaConfig(o.cifras, o.vd, o.vi)) return ErrorDeUso(fallo->mensaje);
  if (o.escribir && o.archivo.empty()) return ErrorDeUso("--escribir necesita -f ARCHIVO");
  if (o.hayEcuacion && !o.archivo.empty())
    return ErrorDeUso("dé una ECUACIÓN o -f ARCHIVO, no ambos");
  if (o.lote && (o.hayEcuacion || !o.archivo.empty() || o.pasos))
    return ErrorDeUso("--lote lee las ecuaciones de la entrada estándar, sin --pasos");
  const ConfigDerivacion config = AceptaConfig(o.cifras, o.vd, o.vi, o.fracciones);
  if (o.lote) return Lote(config);

  std::string documento;
  if (o.hayEcuacion) {
    documento = o.ecuacion;
  } else if (!o.archivo.empty()) {
    std::string bytes;
    if (!LeeArchivo(o.archivo, bytes))
      return Rechazo(-1, 0, "No se pudo leer el archivo " + o.archivo);
    documento = Cp1252AUtf8(bytes);
  } else {
    std::ostringstream entrada;
    entrada << std::cin.rdbuf();
    documento = ComoUtf8(entrada.str());
  }
  documento = FinesDeLineaDeDocumento(documento);

  const SalidaDerivar r = EjecutaDerivar(documento, config, o.pasos);
  if (r.ErrNumber != 0) return Rechazo(r.ErrLin, r.ErrCol, r.ErrDesc);
  if (o.escribir) {
    if (!EscribeArchivo(o.archivo, Utf8ACp1252(documento + r.Texto())))
      return Rechazo(-1, 0, "No se pudo guardar el archivo " + o.archivo);
    return kSalidaBien;
  }
  std::cout << r.Texto() << '\n';
  return kSalidaBien;
}

// mirkal-cli formato [--fracciones] [--cifras N] TEXTO
int OrdenFormato(const Argumentos& args) {
  FormatNum formato;
  std::string texto, cifras = "5";
  bool hayTexto = false, soloTexto = false;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (!soloTexto && a == "--") {
      soloTexto = true;
    } else if (!soloTexto && a == "--fracciones") {
      formato.OutFracc(true);
    } else if (!soloTexto && a == "--cifras") {
      if (!Valor(args, i, cifras)) return kSalidaUso;
    } else if (!soloTexto && a.rfind("--", 0) == 0) {
      return ErrorDeUso("opción desconocida: " + a);
    } else if (hayTexto) {
      return ErrorDeUso("sobra un argumento: " + a);
    } else {
      texto = a;
      hayTexto = true;
    }
  }
  if (!hayTexto) return ErrorDeUso("formato espera un TEXTO");
  if (CompruebaConfig(cifras, "y", "x"))
    return ErrorDeUso("--cifras espera un número entre 0 y 300");
  formato.CifRed(std::stoi(cifras));
  std::cout << formato.FCoef(texto) << '\n';
  return kSalidaBien;
}
