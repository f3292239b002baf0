// Document files: the bytes a user's file holds must come back unchanged
// after opening and saving, and a save that fails must never cost the old file.

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

#include "DiscoLlenoPrueba.h"
#include "EjecutaCliPrueba.h"
#include "files/ArchivoTexto.h"

namespace {

namespace fs = std::filesystem;
using C = Codificacion;

struct Guardado {
  bool bien;
  std::string error;
};

// The superuser writes through any permission bits, so a save that must be
// refused for lack of permission runs in a child that has dropped to "nobody".
std::optional<Guardado> GuardaSinPrivilegios(const std::string& ruta) {
  Guardado g{};
  if (geteuid() != 0) {
    g.bien = GuardaBytes(ruta, "nuevo", g.error);
    return g;
  }
  int tubo[2];
  if (pipe(tubo) != 0) return std::nullopt;
  const pid_t hijo = fork();
  if (hijo == 0) {
    close(tubo[0]);
    std::string r = "x";
    if (setgroups(0, nullptr) == 0 && setgid(65534) == 0 && setuid(65534) == 0)
      r = GuardaBytes(ruta, "nuevo", g.error) ? "1" : "0" + g.error;
    _exit(write(tubo[1], r.data(), r.size()) == static_cast<ssize_t>(r.size()) ? 0 : 1);
  }
  close(tubo[1]);
  std::string r;
  char b[256];
  for (ssize_t n; (n = read(tubo[0], b, sizeof b)) > 0;)
    r.append(b, static_cast<std::size_t>(n));
  close(tubo[0]);
  waitpid(hijo, nullptr, 0);
  if (r.empty() || r[0] == 'x') return std::nullopt;
  return Guardado{r[0] == '1', r.substr(1)};
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
    for (const auto& e : fs::recursive_directory_iterator(carpeta_))
      if (e.is_directory()) fs::permissions(e.path(), fs::perms::owner_all, fs::perm_options::add);
    fs::remove_all(carpeta_);
  }
  std::vector<std::string> Entradas(const std::string& carpeta) const {
    std::vector<std::string> nombres;
    for (const auto& e : fs::directory_iterator(carpeta))
      nombres.push_back(e.path().filename().string());
    return nombres;
  }
  std::string carpeta_, ruta_;
};

TEST(ArchivoTextoCodec, RoundTripKeepsEveryByte) {
  const struct {
    std::string bytes;
    C c;
    std::vector<std::string> filas;
  } casos[] = {
      {"", C::Ansi, {""}},
      {"y = x^2\r\n", C::Ansi, {"y = x^2", ""}},
      {"a\r\nb\r\nc", C::Ansi, {"a", "b", "c"}},
      {"'funci\xF3n\r\ny = \xE1*x", C::Ansi, {"'funci\xF3n", "y = \xE1*x"}},
      {"\xC3(", C::Ansi, {"\xC3("}}, // not UTF-8, so Windows-1252
      {"'función\r\ny = á*x\r\n", C::Utf8, {"'funci\xF3n", "y = \xE1*x", ""}},
      {"€ \u0081", C::Utf8, {"\x80 \x81"}}, // U+0081 is the code page's own byte
      {"\xEF\xBB\xBFy = ñ", C::Utf8ConBom, {"y = \xF1"}},
  };
  for (const auto& caso : casos) {
    SCOPED_TRACE(testing::PrintToString(caso.bytes));
    ContenidoArchivo c;
    std::string error;
    ASSERT_TRUE(DecodificaArchivo(caso.bytes, c, error)) << error;
    EXPECT_EQ(c.codificacion, caso.c);
    EXPECT_EQ(c.filas, caso.filas);
    EXPECT_EQ(CodificaArchivo(c.filas, c.codificacion), caso.bytes);
  }
}

TEST(ArchivoTextoCodec, EveryRowEndEndsARow) {
  const std::pair<std::string, std::vector<std::string>> casos[] = {
      {"a\rb\nc\r\nd", {"a", "b", "c", "d"}},
      {"\n\n", {"", "", ""}},
      {"\r\r\n", {"", "", ""}},
      {"\n\r", {"", "", ""}},
  };
  for (const auto& [bytes, filas] : casos) {
    ContenidoArchivo c;
    std::string error;
    ASSERT_TRUE(DecodificaArchivo(bytes, c, error));
    EXPECT_EQ(c.filas, filas) << testing::PrintToString(bytes);
  }
}

TEST(ArchivoTextoCodec, LongRowsAreKeptWhole) {
  std::string enies;
  for (int i = 0; i < 1000; ++i)
    enies += "ñ";
  const std::string bytes = std::string(1000, 'x') + "\r\n" + enies;
  ContenidoArchivo c;
  std::string error;
  ASSERT_TRUE(DecodificaArchivo(bytes, c, error));
  EXPECT_EQ(c.filas, (std::vector<std::string>{std::string(1000, 'x'), std::string(1000, '\xF1')}));
  EXPECT_EQ(CodificaArchivo(c.filas, c.codificacion), bytes);
}

TEST(ArchivoTextoCodec, CharactersOutsideTheCodePageAreRefusedWithTheirPlace) {
  const std::pair<std::string, std::string> casos[] = {
      // The column counts characters, not the two bytes of "ñ".
      {"y = x\r\n'nota\r\ny = añ→x", "«→» (línea 3, columna 7)"},
      {"a\rb\n中", "«中» (línea 3, columna 1)"},
      {"x😀", "«😀» (línea 1, columna 2)"},
      {"ok\r\nx\u0085", "U+0085 (línea 2, columna 2)"},
  };
  for (const auto& [bytes, lugar] : casos) {
    ContenidoArchivo c{{"previo"}, C::Ansi};
    std::string error;
    EXPECT_FALSE(DecodificaArchivo(bytes, c, error));
    EXPECT_EQ(error,
              "El archivo contiene el carácter " + lugar + ", que el documento no puede guardar.");
    EXPECT_EQ(c.filas, std::vector<std::string>{"previo"});
  }
}

TEST(ArchivoTextoCodec, NameIsTheTextAfterTheLastSeparator) {
  EXPECT_EQ(NombreDocumento("/home/ana/ecuaciones.txt"), "ecuaciones.txt");
  EXPECT_EQ(NombreDocumento("C:\\Mis documentos\\año.txt"), "año.txt");
  EXPECT_EQ(NombreDocumento("a/b\\c.txt"), "c.txt");
  EXPECT_EQ(NombreDocumento("suelto.txt"), "suelto.txt");
}

TEST_F(ArchivoTexto, SavingOverALongerFileLeavesNoTrailingBytes) {
  prueba::EscribeArchivo(ruta_, std::string(5000, 'z'));
  std::string error;
  ASSERT_TRUE(GuardaBytes(ruta_, CodificaArchivo({"a", "b", "c"}, C::Ansi), error)) << error;
  EXPECT_EQ(prueba::LeeArchivo(ruta_), "a\r\nb\r\nc");
  EXPECT_EQ(Entradas(carpeta_), std::vector<std::string>{"doc.txt"});
  std::string leido;
  ASSERT_TRUE(LeeArchivo(ruta_, leido, error));
  EXPECT_EQ(leido, "a\r\nb\r\nc");
}

TEST_F(ArchivoTexto, SavingKeepsPermissionsAndLinks) {
  const mode_t mascara = umask(022);
  std::string error;
  ASSERT_TRUE(GuardaBytes(ruta_, "1", error)) << error;
  EXPECT_EQ(fs::status(ruta_).permissions(), fs::perms(0644)); // as any new file, not 0600
  fs::permissions(ruta_, fs::perms(0640));
  ASSERT_TRUE(GuardaBytes(ruta_, "2", error)) << error;
  EXPECT_EQ(fs::status(ruta_).permissions(), fs::perms(0640));
  umask(mascara);

  fs::create_symlink("doc.txt", carpeta_ + "/enlace.txt");
  ASSERT_TRUE(GuardaBytes(carpeta_ + "/enlace.txt", "3", error)) << error;
  EXPECT_TRUE(fs::is_symlink(carpeta_ + "/enlace.txt"));
  EXPECT_EQ(prueba::LeeArchivo(ruta_), "3");
}

TEST_F(ArchivoTexto, WithoutWritePermissionTheOldFileStays) {
  // A folder closed to writing, then a file made read-only in an open folder.
  const std::pair<int, int> casos[] = {{0555, 0666}, {0777, 0444}};
  for (const auto& [carpeta, archivo] : casos) {
    fs::permissions(carpeta_, fs::perms(0755));
    prueba::EscribeArchivo(ruta_, "viejo");
    fs::permissions(ruta_, fs::perms(archivo));
    fs::permissions(carpeta_, fs::perms(carpeta));
    const auto g = GuardaSinPrivilegios(ruta_);
    if (!g) GTEST_SKIP() << "no se pudo guardar como usuario sin privilegios";
    EXPECT_FALSE(g->bien);
    EXPECT_EQ(g->error, "No se pudo guardar «doc.txt»: permiso denegado.");
    EXPECT_EQ(prueba::LeeArchivo(ruta_), "viejo");
    EXPECT_EQ(Entradas(carpeta_), std::vector<std::string>{"doc.txt"});
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
  std::string error;
  const bool bien = GuardaBytes(ruta_, std::string(100000, 'x'), error);
  setrlimit(RLIMIT_FSIZE, &antes);
  signal(SIGXFSZ, senal);
  EXPECT_FALSE(bien);
  EXPECT_EQ(error, "No se pudo guardar «doc.txt»: archivo demasiado grande.");
  EXPECT_EQ(prueba::LeeArchivo(ruta_), "viejo");
  EXPECT_EQ(Entradas(carpeta_), std::vector<std::string>{"doc.txt"});
}

TEST_F(ArchivoTexto, OnAFullDiskTheOldFileStays) {
  prueba::DiscoLleno disco;
  const std::string motivo = disco.Monta(carpeta_);
  if (!motivo.empty()) GTEST_SKIP() << "sin disco lleno de prueba: " << motivo;
  const std::string ruta = disco.Carpeta() + "/doc.txt";
  prueba::EscribeArchivo(ruta, "viejo");
  ASSERT_TRUE(disco.Llena());
  std::string error;
  EXPECT_FALSE(GuardaBytes(ruta, std::string(20000, 'x'), error));
  EXPECT_EQ(error, "No se pudo guardar «doc.txt»: disco lleno.");
  EXPECT_EQ(prueba::LeeArchivo(ruta), "viejo");
  std::vector<std::string> quedan = Entradas(disco.Carpeta());
  std::sort(quedan.begin(), quedan.end());
  EXPECT_EQ(quedan, (std::vector<std::string>{"doc.txt", "relleno"}));
}

TEST_F(ArchivoTexto, MissingFolderOrFileIsReported) {
  std::string error, bytes;
  EXPECT_FALSE(GuardaBytes(carpeta_ + "/no-existe/doc.txt", "x", error));
  EXPECT_EQ(error, "No se pudo guardar «doc.txt»: carpeta inexistente.");
  EXPECT_FALSE(LeeArchivo(carpeta_ + "/nada.txt", bytes, error));
  EXPECT_EQ(error, "No se pudo abrir «nada.txt»: archivo inexistente.");
  EXPECT_FALSE(LeeArchivo(carpeta_, bytes, error));
  EXPECT_EQ(error, "No se pudo abrir «" + NombreDocumento(carpeta_) + "»: es una carpeta.");
}

} // namespace
