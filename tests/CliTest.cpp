// mirkal-cli where a transcript under tests/cli cannot set the scene: links,
// permission bits, folders that bear a temporary-looking name, a save cut
// short, and the help, whose wording is free but whose content is not.

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "EjecutaCliPrueba.h"

namespace {

namespace fs = std::filesystem;
using prueba::EjecutaCli;
using prueba::LeeArchivo;

const std::string kAñadido = "\r\n'Derivada hallada:\r\n'dy/dx = 2*x";

// A folder of its own for each test, and what it holds.
class CliArchivo : public testing::Test {
protected:
  void SetUp() override {
    ASSERT_NE(mkdtemp(carpeta_.data()), nullptr);
    doc_ = carpeta_ + "/doc.txt";
  }
  void TearDown() override { fs::remove_all(carpeta_); }
  std::set<std::string> Entradas() const {
    std::set<std::string> r;
    for (const auto& e : fs::directory_iterator(carpeta_))
      r.insert(e.path().filename().string());
    return r;
  }
  std::string carpeta_ = testing::TempDir() + "mirkal-cli-XXXXXX", doc_;
};

// The save replaces the file through a temporary of its own naming: a link
// still names its file, the permission bits stay, and folders that happen to
// bear a temporary-looking name are left alone.
TEST_F(CliArchivo, SavingKeepsTheLinkAndThePermissions) {
  const std::string documento = "y = x^2\r\n", enlace = carpeta_ + "/enlace.txt";
  prueba::EscribeArchivo(doc_, documento);
  fs::permissions(doc_, fs::perms(0640));
  fs::create_symlink("doc.txt", enlace);
  fs::create_directory(doc_ + ".mirkal-tmp");
  fs::create_directory(enlace + ".mirkal-tmp");
  const std::set<std::string> entradas = Entradas();
  const std::vector<std::string> args = {"derivar", "-f", enlace, "--escribir"};
  const prueba::SalidaCli s = EjecutaCli(args);
  EXPECT_EQ(s.estado, 0) << s.err;
  EXPECT_EQ(s.out + s.err, "");
  EXPECT_EQ(LeeArchivo(doc_), documento + kAñadido);
  EXPECT_EQ(fs::status(doc_).permissions(), fs::perms(0640));

  // A read-only file: the file layer leaves it alone unless the superuser,
  // who may write anyway, saves it; then it stays read-only.
  fs::permissions(doc_, fs::perms(0444));
  const prueba::SalidaCli r = EjecutaCli(args);
  const bool root = geteuid() == 0;
  EXPECT_EQ(r.estado, root ? 0 : 3);
  EXPECT_EQ(r.err, root ? ""
                        : "mirkal-cli: " + enlace +
                              ": No se pudo guardar «enlace.txt»: permiso denegado.\n");
  EXPECT_EQ(LeeArchivo(doc_), documento + kAñadido + (root ? kAñadido : ""));
  EXPECT_EQ(fs::status(doc_).permissions(), fs::perms(0444));
  EXPECT_TRUE(fs::is_symlink(enlace));
  EXPECT_EQ(Entradas(), entradas);
}

// A save cut short, which permission bits cannot provoke for the superuser:
// a file size limit stops the write halfway, as a full disk would.
TEST_F(CliArchivo, AFailedSaveExitsThreeAndLeavesTheFile) {
  const std::string documento = "y = x^2\r\n' " + std::string(8000, 'n');
  prueba::EscribeArchivo(doc_, documento);
  rlimit antes{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &antes), 0);
  rlimit corto = antes;
  corto.rlim_cur = 4096;
  const auto senal = std::signal(SIGXFSZ, SIG_IGN); // inherited: EFBIG, not a kill
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &corto), 0);
  const prueba::SalidaCli s = EjecutaCli({"derivar", "-f", doc_, "--escribir"});
  setrlimit(RLIMIT_FSIZE, &antes);
  std::signal(SIGXFSZ, senal);
  EXPECT_EQ(s.estado, 3);
  EXPECT_EQ(s.out, "");
  EXPECT_EQ(s.err,
            "mirkal-cli: " + doc_ + ": No se pudo guardar «doc.txt»: archivo demasiado grande.\n");
  EXPECT_EQ(LeeArchivo(doc_), documento);
  EXPECT_EQ(Entradas(), std::set<std::string>{"doc.txt"});
}

TEST(Cli, HelpNamesTheCommandsAndTheExitStatus) {
  const prueba::SalidaCli s = EjecutaCli({"--help"});
  EXPECT_EQ(s.estado, 0);
  for (const char* parte : {"sintaxis", "--desigualdad", "3 fallo de lectura o escritura"})
    EXPECT_NE(s.out.find(parte), std::string::npos) << parte << " in:\n" << s.out;
}

} // namespace
