#include "files/ArchivoTexto.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "lang/Cp1252.h"

namespace {

constexpr std::string_view kBom = "\xEF\xBB\xBF";

bool TieneNoAscii(std::string_view texto) {
  return std::any_of(texto.begin(), texto.end(),
                     [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

// Characters that show nothing by themselves: controls, combining marks,
// spaces and marks of layout. A message names them by their code instead.
bool EsInvisible(char32_t cp) {
  return cp < 0xA0 || (cp >= 0x0300 && cp <= 0x036F) || (cp >= 0x2000 && cp <= 0x200F) ||
         (cp >= 0x2028 && cp <= 0x202F) || (cp >= 0x2060 && cp <= 0x206F) || cp == 0xFEFF;
}

// Whether every character of a row read as UTF-8 fits a cell; if not, a
// message naming the first one that does not, with its line and column.
bool FilaCabe(std::string_view utf8, std::size_t numFila, std::string& error) {
  const std::string ajeno = PrimerCaracterAjeno(utf8);
  if (ajeno.empty()) return true;
  // UTF-8 synchronises itself, so the first place these bytes stand is where
  // the character starts.
  const std::size_t i = utf8.find(ajeno);
  char32_t cp = 0;
  DecodificaUtf8(ajeno, 0, cp);
  std::string nombre;
  if (EsInvisible(cp)) {
    char hex[16];
    std::snprintf(hex, sizeof hex, "U+%04X", static_cast<unsigned>(cp));
    nombre = hex;
  } else {
    nombre = "«" + ajeno + "»";
  }
  const int col = LongitudUtf8(utf8.substr(0, i)) + 1;
  error = "El archivo contiene el carácter " + nombre + " (línea " + std::to_string(numFila) +
          ", columna " + std::to_string(col) + "), que el documento no puede guardar.";
  return false;
}

// The reason for a failed file operation, as a user would say it.
std::string Motivo(int err, bool leyendo) {
  switch (err) {
  case EACCES:
  case EPERM:
    return "permiso denegado";
  case ENOSPC:
  case EDQUOT:
    return "disco lleno";
  case ENOENT:
    return leyendo ? "archivo inexistente" : "carpeta inexistente";
  case ENOTDIR:
    return "carpeta inexistente";
  case EISDIR:
    return "es una carpeta";
  case EROFS:
    return "disco de solo lectura";
  case EFBIG:
    return "archivo demasiado grande";
  case ENAMETOOLONG:
    return "nombre demasiado largo";
  default:
    return std::strerror(err);
  }
}

std::string Fallo(const char* accion, const std::string& ruta, int err, bool leyendo) {
  return std::string("No se pudo ") + accion + " «" + NombreDocumento(ruta) +
         "»: " + Motivo(err, leyendo) + ".";
}

// The permission bits an ordinary new file gets, as the file-creation mask
// allows; mkstemp itself opens the file to its owner only.
mode_t ModoNuevo() {
  const mode_t mascara = umask(0);
  umask(mascara);
  return 0666 & ~mascara;
}

// Fills the temporary file and brings it to disk; 0 or the error number.
int EscribeTemporal(int fd, const std::string& bytes, const struct stat* viejo) {
  if (viejo != nullptr && (viejo->st_uid != geteuid() || viejo->st_gid != getegid())) {
    if (fchown(fd, viejo->st_uid, viejo->st_gid) != 0) {
      // Only the superuser may hand a file to another owner; for anyone else
      // the new file stays theirs, which loses nothing of its text.
    }
  }
  if (fchmod(fd, viejo != nullptr ? viejo->st_mode & 07777 : ModoNuevo()) != 0) return errno;
  for (std::size_t hecho = 0; hecho < bytes.size();) {
    const ssize_t n = write(fd, bytes.data() + hecho, bytes.size() - hecho);
    if (n < 0) {
      if (errno == EINTR) continue;
      return errno;
    }
    hecho += static_cast<std::size_t>(n);
  }
  return fsync(fd) != 0 ? errno : 0;
}

// Brings the folder's new entry to disk so that the rename survives a power
// cut. Some file systems cannot sync a folder; the text is safe either way.
void SincronizaCarpeta(const std::string& carpeta) {
  const int fd = open(carpeta.empty() ? "." : carpeta.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  (void)fsync(fd);
  close(fd);
}

} // namespace

bool DecodificaArchivo(const std::string& bytes, ContenidoArchivo& contenido, std::string& error) {
  std::string_view texto = bytes;
  Codificacion c = Codificacion::Ansi;
  if (texto.starts_with(kBom) && EsUtf8Valido(texto)) {
    c = Codificacion::Utf8ConBom;
    texto.remove_prefix(kBom.size());
  } else if (TieneNoAscii(texto) && EsUtf8Valido(texto)) {
    c = Codificacion::Utf8;
  }

  std::vector<std::string> filas;
  bool cabe = true;
  if (c == Codificacion::Ansi) {
    RecorreFilas(texto, [&](std::string_view f) { filas.emplace_back(f); });
  } else {
    RecorreFilas(texto, [&](std::string_view f) {
      if (!cabe) return;
      cabe = FilaCabe(f, filas.size() + 1, error);
      filas.push_back(Utf8ACp1252(f));
    });
  }
  if (!cabe) return false;
  contenido.filas = std::move(filas);
  contenido.codificacion = c;
  return true;
}

std::string CodificaArchivo(const std::vector<std::string>& filas, Codificacion c) {
  std::size_t total = 0;
  for (const auto& f : filas)
    total += f.size() + 2;
  std::string ansi;
  ansi.reserve(total);
  for (std::size_t i = 0; i < filas.size(); ++i) {
    if (i > 0) ansi += "\r\n";
    ansi += filas[i];
  }
  if (c == Codificacion::Ansi) return ansi;
  std::string utf8(c == Codificacion::Utf8ConBom ? kBom : std::string_view{});
  utf8 += Cp1252AUtf8(ansi);
  return utf8;
}

bool LeeArchivo(const std::string& ruta, std::string& bytes, std::string& error) {
  const int fd = open(ruta.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) {
    error = Fallo("abrir", ruta, errno, true);
    return false;
  }
  struct stat st {};
  if (fstat(fd, &st) == 0 && S_ISDIR(st.st_mode)) {
    close(fd);
    error = Fallo("abrir", ruta, EISDIR, true);
    return false;
  }
  // One byte more than the file's size, so that the end shows without a
  // second allocation; a file that grows meanwhile is still read whole.
  std::string leido(S_ISREG(st.st_mode) ? static_cast<std::size_t>(st.st_size) + 1 : 65536, '\0');
  std::size_t usado = 0;
  for (;;) {
    if (usado == leido.size()) leido.resize(leido.size() * 2);
    const ssize_t n = read(fd, leido.data() + usado, leido.size() - usado);
    if (n < 0) {
      if (errno == EINTR) continue;
      const int err = errno;
      close(fd);
      error = Fallo("leer", ruta, err, true);
      return false;
    }
    if (n == 0) break;
    usado += static_cast<std::size_t>(n);
  }
  close(fd);
  leido.resize(usado);
  bytes = std::move(leido);
  return true;
}

bool GuardaBytes(const std::string& ruta, const std::string& bytes, std::string& error) {
  auto falla = [&](int err) {
    error = Fallo("guardar", ruta, err, false);
    return false;
  };

  // Replacing a symbolic link by a file would cut it from the file it names.
  std::string destino = ruta;
  struct stat st {};
  if (lstat(ruta.c_str(), &st) == 0 && S_ISLNK(st.st_mode)) {
    if (char* real = realpath(ruta.c_str(), nullptr)) {
      destino = real;
      std::free(real);
    }
  }
  const bool existe = stat(destino.c_str(), &st) == 0;
  if (existe) {
    if (S_ISDIR(st.st_mode)) return falla(EISDIR);
    // A file the user made read-only is not replaced behind their back,
    // although the folder would allow it.
    if (access(destino.c_str(), W_OK) != 0) return falla(errno);
  } else if (errno != ENOENT) {
    return falla(errno);
  }

  const std::size_t barra = destino.rfind('/');
  const std::string carpeta = barra == std::string::npos ? "" : destino.substr(0, barra + 1);
  // Named after the file, so a copy left by a crash is recognisable; cut
  // short so that a long name still leaves room for the suffix.
  std::string temporal = carpeta + "." + destino.substr(carpeta.size()).substr(0, 64) + ".XXXXXX";
  const int fd = mkostemp(temporal.data(), O_CLOEXEC);
  if (fd < 0) return falla(errno);

  int err = EscribeTemporal(fd, bytes, existe ? &st : nullptr);
  if (close(fd) != 0 && err == 0) err = errno;
  if (err == 0 && rename(temporal.c_str(), destino.c_str()) != 0) err = errno;
  if (err != 0) {
    unlink(temporal.c_str());
    return falla(err);
  }
  SincronizaCarpeta(carpeta);
  return true;
}

std::string NombreDocumento(const std::string& ruta) {
  const std::size_t barra = ruta.find_last_of("/\\");
  return barra == std::string::npos ? ruta : ruta.substr(barra + 1);
}
