// Document files: the bytes a user's file holds must come back unchanged
// after opening and saving (the lines of tests/casos/archivos.txt), and a save
// that fails must never cost the old file.

#include <gtest/gtest.h>

#include <grp.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "Casos.h"
#include "DibujoPrueba.h"
#include "DiscoLlenoPrueba.h"
#include "EjecutaCliPrueba.h"
#include "files/ArchivoTexto.h"

namespace {

namespace fs = std::filesystem;
using C = Codificacion;

// "bien" when the save worked, else its error.
std::string Guarda(const std::string& ruta, const std::string& bytes) {
  std::string error;
  return GuardaBytes(ruta, bytes, error) ? "bien" : error;
}

// The superuser writes through any permission bits, so a save that must be
// refused for lack of permission runs in a child that has dropped to
// "nobody"; nothing when it could not.
std::optional<std::string> GuardaSinPrivilegios(const std::string& ruta) {
  int tubo[2];
  if (geteuid() != 0) return Guarda(ruta, "nuevo");
  if (pipe(tubo) != 0) return std::nullopt;
  const pid_t hijo = fork();
  if (hijo == 0) {
    const bool nadie = setgroups(0, nullptr) == 0 && setgid(65534) == 0 && setuid(65534) == 0;
    const std::string r = nadie ? Guarda(ruta, "nuevo") : "";
    _exit(write(tubo[1], r.data(), r.size()) < 0);
  }
  close(tubo[1]);
  std::string r;
  char b[256];
  for (ssize_t n; (n = read(tubo[0], b, sizeof b)) > 0;)
    r.append(b, static_cast<std::size_t>(n));
  close(tubo[0]);
  waitpid(hijo, nullptr, 0);
  return r.empty() ? std::nullopt : std::optional(r);
}

class ArchivoTexto : public testing::Test {
protected:
  void SetUp() override {
    std::string plantilla = testing::TempDir() + "mirkal-archivo-XXXXXX";
    ASSERT_NE(mkdtemp(plantilla.data()), nullptr);
    carpeta_ = plantilla;
    fs::permissions(carpeta_, fs::perms(0755)); // open to the unprivileged child
    ruta_ = carpeta_ + "/doc.txt";
  }
  void TearDown() override {
    fs::permissions(carpeta_, fs::perms::owner_all, fs::perm_options::add);
    fs::remove_all(carpeta_);
  }
  // The document's bytes, then every name in its folder.
  static std::string Quedan(const std::string& ruta) {
    std::vector<std::string> nombres;
    for (const auto& e : fs::directory_iterator(fs::path(ruta).parent_path()))
      nombres.push_back(e.path().filename().string());
    std::sort(nombres.begin(), nombres.end());
    std::string out = prueba::LeeArchivo(ruta);
    for (const std::string& n : nombres)
      out += " " + n;
    return out;
  }
  std::string carpeta_, ruta_;
};

// Rows joined by "\n" as the data file writes them.
std::string Filas(const std::vector<std::string>& filas) {
  std::string out;
  for (const std::string& f : filas)
    out += (&f == &filas.front() ? "" : "\n") + f;
  return out;
}

class Codec : public prueba::TablaDeCasos {};

TEST_P(Codec, Casos) {
  const prueba::Caso& c = GetParam();
  const auto texto = [](const std::string& f) { return prueba::Expande(f == "\"\"" ? "" : f); };
  const std::string bytes = texto(c[1]);
  if (c[0] == "nombre") {
    EXPECT_EQ(NombreDocumento(c[1]), c[2]);
    return;
  }
  ContenidoArchivo leido{{"previo"}, C::Ansi};
  std::string error;
  const bool bien = DecodificaArchivo(bytes, leido, error);
  if (c[0] == "rechaza") {
    EXPECT_FALSE(bien);
    EXPECT_EQ(error,
              "El archivo contiene el carácter " + c[2] + ", que el documento no puede guardar.");
    EXPECT_EQ(leido.filas, std::vector<std::string>{"previo"});
    return;
  }
  ASSERT_TRUE(bien) << error;
  EXPECT_EQ(Filas(leido.filas), texto(c[3]));
  const char* const nombres[] = {"Ansi", "Utf8", "Utf8ConBom"};
  EXPECT_EQ(nombres[static_cast<int>(leido.codificacion)], c[2]);
  if (c[0] == "ida") {
    EXPECT_EQ(CodificaArchivo(leido.filas, leido.codificacion), bytes);
  }
}

INSTANTIATE_TEST_SUITE_P(Casos, Codec, prueba::Casos("archivos.txt"), prueba::NombreDeCaso);

TEST_F(ArchivoTexto, SavingOverALongerFileLeavesNoTrailingBytes) {
  prueba::EscribeArchivo(ruta_, std::string(5000, 'z'));
  ASSERT_EQ(Guarda(ruta_, CodificaArchivo({"a", "b", "c"}, C::Ansi)), "bien");
  EXPECT_EQ(Quedan(ruta_), "a\r\nb\r\nc doc.txt");
  std::string leido, error;
  ASSERT_TRUE(LeeArchivo(ruta_, leido, error)) << error;
  EXPECT_EQ(leido, "a\r\nb\r\nc");
}

TEST_F(ArchivoTexto, SavingKeepsPermissionsAndLinks) {
  const mode_t mascara = umask(022);
  ASSERT_EQ(Guarda(ruta_, "1"), "bien");
  EXPECT_EQ(fs::status(ruta_).permissions(), fs::perms(0644)); // as any new file, not 0600
  fs::permissions(ruta_, fs::perms(0640));
  ASSERT_EQ(Guarda(ruta_, "2"), "bien");
  EXPECT_EQ(fs::status(ruta_).permissions(), fs::perms(0640));
  umask(mascara);
  fs::create_symlink("doc.txt", carpeta_ + "/enlace.txt");
  ASSERT_EQ(Guarda(carpeta_ + "/enlace.txt", "3"), "bien");
  EXPECT_TRUE(fs::is_symlink(carpeta_ + "/enlace.txt"));
  EXPECT_EQ(prueba::LeeArchivo(ruta_), "3");
}

TEST_F(ArchivoTexto, WithoutWritePermissionTheOldFileStays) {
  // A folder closed to writing, then a file made read-only in an open folder.
  for (const auto& [carpeta, archivo] : {std::pair{0555, 0666}, {0777, 0444}}) {
    fs::permissions(carpeta_, fs::perms(0755));
    prueba::EscribeArchivo(ruta_, "viejo");
    fs::permissions(ruta_, fs::perms(archivo));
    fs::permissions(carpeta_, fs::perms(carpeta));
    const auto error = GuardaSinPrivilegios(ruta_);
    if (!error) GTEST_SKIP() << "no se pudo guardar como usuario sin privilegios";
    EXPECT_EQ(*error, "No se pudo guardar «doc.txt»: permiso denegado.");
    EXPECT_EQ(Quedan(ruta_), "viejo doc.txt");
  }
}

TEST_F(ArchivoTexto, WriteCutShortRemovesTheTemporaryAndKeepsTheOldFile) {
  prueba::EscribeArchivo(ruta_, "viejo");
  // A file size limit stops the write halfway, as a full disk would.
  rlimit antes{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &antes), 0);
  rlimit corto = antes;
  corto.rlim_cur = 4096;
  const auto senal = signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &corto), 0);
  const std::string error = Guarda(ruta_, std::string(100000, 'x'));
  setrlimit(RLIMIT_FSIZE, &antes);
  signal(SIGXFSZ, senal);
  EXPECT_EQ(error, "No se pudo guardar «doc.txt»: archivo demasiado grande.");
  EXPECT_EQ(Quedan(ruta_), "viejo doc.txt");
}

TEST_F(ArchivoTexto, OnAFullDiskTheOldFileStays) {
  prueba::DiscoLleno disco;
  const std::string motivo = disco.Monta(carpeta_);
  if (!motivo.empty()) GTEST_SKIP() << "sin disco lleno de prueba: " << motivo;
  const std::string ruta = disco.Carpeta() + "/doc.txt";
  prueba::EscribeArchivo(ruta, "viejo");
  ASSERT_TRUE(disco.Llena());
  EXPECT_EQ(Guarda(ruta, std::string(20000, 'x')), "No se pudo guardar «doc.txt»: disco lleno.");
  EXPECT_EQ(Quedan(ruta), "viejo doc.txt relleno");
}

TEST_F(ArchivoTexto, MissingFolderOrFileIsReported) {
  std::string error, bytes;
  EXPECT_EQ(Guarda(carpeta_ + "/no-existe/doc.txt", "x"),
            "No se pudo guardar «doc.txt»: carpeta inexistente.");
  EXPECT_FALSE(LeeArchivo(carpeta_ + "/nada.txt", bytes, error));
  EXPECT_EQ(error, "No se pudo abrir «nada.txt»: archivo inexistente.");
  EXPECT_FALSE(LeeArchivo(carpeta_, bytes, error));
  EXPECT_EQ(error, "No se pudo abrir «" + NombreDocumento(carpeta_) + "»: es una carpeta.");
}

} // namespace
