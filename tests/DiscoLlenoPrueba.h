#pragma once
// A small file system of its own for one test, filled to the last block, so
// that a save meets a real full disk. Only the superuser may mount one; for
// anyone else Monta() gives the reason to skip the test.

#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

namespace prueba {

class DiscoLleno {
public:
  DiscoLleno() = default;
  DiscoLleno(const DiscoLleno&) = delete; // it unmounts once
  DiscoLleno& operator=(const DiscoLleno&) = delete;
  ~DiscoLleno() {
    if (montado_) umount2(carpeta_.c_str(), MNT_DETACH);
    if (!carpeta_.empty()) rmdir(carpeta_.c_str());
  }

  // Mounts a tmpfs of `kb` kilobytes on a new folder under `base`. Empty on
  // success, otherwise why it could not be done.
  std::string Monta(const std::string& base, int kb = 64) {
    if (geteuid() != 0) return "hace falta ser superusuario para montar un tmpfs";
    std::string plantilla = base + "/mirkal-lleno-XXXXXX";
    if (mkdtemp(plantilla.data()) == nullptr) return std::strerror(errno);
    carpeta_ = plantilla;
    const std::string opciones = "size=" + std::to_string(kb) + "k,mode=0777";
    montado_ = mount("tmpfs", carpeta_.c_str(), "tmpfs", 0, opciones.c_str()) == 0;
    return montado_ ? "" : std::string("no se pudo montar un tmpfs: ") + std::strerror(errno);
  }

  // Writes a filler file until the file system refuses another byte. True
  // when it is indeed full.
  bool Llena() const {
    const int fd = open((carpeta_ + "/relleno").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    const std::string bloque(4096, 'r');
    ssize_t n = 0;
    while (fd >= 0 && (n = write(fd, bloque.data(), bloque.size())) > 0) {
    }
    const bool lleno = fd >= 0 && n < 0 && errno == ENOSPC;
    if (fd >= 0) close(fd);
    return lleno;
  }

  const std::string& Carpeta() const { return carpeta_; }

private:
  std::string carpeta_;
  bool montado_ = false;
};

} // namespace prueba
