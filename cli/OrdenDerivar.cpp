// mirkal-cli derivar: the editor's derivation commands for scripts and
// terminals. A document comes from a file or from standard input through the
// editor's own file layer, so it is read exactly as Abrir reads it, and
// --escribir appends the result and saves as Derivar followed by Guardar.

#include <algorithm>
#include <iostream>
#include <optional>
#include <sstream>
#include <thread>

#include "cli/Lote.h"
#include "cli/Opciones.h"
#include "cli/Ordenes.h"
#include "commands/OrdenDerivar.h"
#include "files/ArchivoDocumento.h"
#include "lang/Cp1252.h"
#include "lang/EnteroAcotado.h"

namespace {

const std::vector<Opcion> kOpciones = {
    {"--archivo", "-f", true}, {"--vd", "", true}, {"--vi", "", true},
    {"--cifras", "", true},    {"--escribir"},     {"--pasos"},
    {"--fracciones"},          {"--decimales"},    {"--lote"},
    {"--hilos", "-j", true},
};

struct OpcionesDerivar {
  std::optional<std::string> archivo, ecuacion;
  std::string vd = "y", vi = "x", cifras = "5", hilos;
  int numHilos = 0; // the threads of a batch, once the options are checked
  bool escribir = false, pasos = false, fracciones = true, lote = false;
};

// One option as given; taken in order, the last of --fracciones and
// --decimales, or of two values of one option, wins.
void Aplica(const OpcionDada& dada, OpcionesDerivar& o) {
  const std::string& n = dada.larga;
  if (n == "--archivo") o.archivo = dada.valor;
  if (n == "--vd") o.vd = dada.valor;
  if (n == "--vi") o.vi = dada.valor;
  if (n == "--cifras") o.cifras = dada.valor;
  if (n == "--escribir") o.escribir = true;
  if (n == "--pasos") o.pasos = true;
  if (n == "--fracciones" || n == "--decimales") o.fracciones = n == "--fracciones";
  if (n == "--lote") o.lote = true;
  if (n == "--hilos") o.hilos = dada.valor;
}

// Threads of a batch: as many as the machine has cores, or those asked for
// (0 when what was asked is no count).
constexpr int kMaxHilos = 256;
int Hilos(const std::string& pedidos) {
  if (!pedidos.empty()) return EnteroAcotado(pedidos, 1, kMaxHilos).value_or(0);
  return static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1u, 64u));
}

// The options and their combinations; "" or the usage error.
std::string LeeOpciones(const Argumentos& args, OpcionesDerivar& o) {
  ArgumentosLeidos leidos;
  if (std::string error = LeeArgumentos(args, kOpciones, leidos); !error.empty()) return error;
  const std::vector<std::string>& pos = leidos.posicionales;
  if (pos.size() > 1) return "sobra un argumento: " + pos[1];
  if (!pos.empty()) o.ecuacion = pos[0];
  for (const OpcionDada& dada : leidos.opciones)
    Aplica(dada, o);

  if (const auto fallo = CompruebaConfig(o.cifras, o.vd, o.vi)) return fallo->mensaje;
  if (o.escribir && !o.archivo) return "--escribir necesita -f ARCHIVO";
  if (o.ecuacion && o.archivo) return "dé una ECUACIÓN o -f ARCHIVO, no ambos";
  if (o.lote && (o.ecuacion || o.archivo))
    return "--lote lee las ecuaciones de la entrada estándar y escribe en la salida";
  if (!o.hilos.empty() && !o.lote) return "--hilos sólo sirve con --lote";
  o.numHilos = Hilos(o.hilos);
  if (o.numHilos < 1) return "--hilos espera un número de 1 a " + std::to_string(kMaxHilos);
  return {};
}

// The document of -f, or of standard input, loaded into `editor` as Abrir
// loads a file. A file the editor could not open is a read failure.
int CargaDocumento(const OpcionesDerivar& o, Editor& editor, EstadoArchivo& estado) {
  std::string error;
  if (o.archivo) {
    if (!CargaArchivo(editor, estado, *o.archivo, error)) return FalloDeArchivo(*o.archivo, error);
    return kSalidaBien;
  }
  std::ostringstream entrada;
  entrada << std::cin.rdbuf();
  ContenidoArchivo contenido;
  if (!DecodificaArchivo(entrada.str(), contenido, error))
    return FalloDeArchivo("entrada estándar", error);
  editor.Carga(contenido.filas);
  return kSalidaBien;
}

// Derivar's text goes at the end of the document, then Guardar writes the
// file back in the encoding it was read in.
int AñadeYGuarda(Editor& editor, EstadoArchivo& estado, const std::string& texto) {
  Documento& doc = editor.Doc();
  const int ultima = doc.NumFilas() - 1;
  doc.QuitaSeleccion();
  doc.MueveCursor(ultima, doc.LongFila(ultima));
  const Resultado escrito = editor.EscribeTexto(texto);
  if (!escrito.hecho) return Rechazo(-1, 0, escrito.aviso);
  std::string error;
  if (!GuardaArchivo(editor, estado, estado.ruta, error)) return FalloDeArchivo(estado.ruta, error);
  return kSalidaBien;
}

} // namespace

// mirkal-cli derivar [opciones] [ECUACIÓN]
int OrdenDerivar(const Argumentos& args) {
  OpcionesDerivar o;
  if (const std::string error = LeeOpciones(args, o); !error.empty()) return ErrorDeUso(error);
  const ConfigDerivacion config = AceptaConfig(o.cifras, o.vd, o.vi, o.fracciones);
  if (o.lote) return Lote(config, o.pasos, o.numHilos);

  Editor editor;
  EstadoArchivo estado;
  if (!o.ecuacion) {
    if (const int s = CargaDocumento(o, editor, estado); s != kSalidaBien) return s;
  }
  const std::string documento =
      o.ecuacion ? FinesDeLineaDeDocumento(*o.ecuacion) : editor.Doc().TextoDocumento();
  const SalidaDerivar r = EjecutaDerivar(documento, config, o.pasos);
  if (r.ErrNumber != 0) return Rechazo(r.ErrLin, r.ErrCol, r.ErrDesc);
  if (o.escribir) return AñadeYGuarda(editor, estado, r.Texto());
  std::cout << r.Texto() << '\n';
  return kSalidaBien;
}
