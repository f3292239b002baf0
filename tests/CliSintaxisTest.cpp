// `mirkal-cli sintaxis` run as scripts run it: a child process whose standard
// output, standard error and exit status are all part of the answer.

#include <gtest/gtest.h>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace {

struct Salida {
  int estado = -1;
  std::string out, err;
};

Salida Ejecuta(std::vector<std::string> args) {
  args.insert(args.begin(), MIRKAL_CLI);
  int tubOut[2], tubErr[2];
  if (pipe(tubOut) != 0 || pipe(tubErr) != 0) return {};
  const pid_t pid = fork();
  if (pid == 0) {
    dup2(tubOut[1], 1), dup2(tubErr[1], 2);
    close(tubOut[0]), close(tubOut[1]), close(tubErr[0]), close(tubErr[1]);
    std::vector<char*> argv;
    for (auto& a : args)
      argv.push_back(a.data());
    argv.push_back(nullptr);
    execv(argv[0], argv.data());
    _exit(127);
  }
  close(tubOut[1]), close(tubErr[1]);
  Salida s;
  pollfd fds[2] = {{tubOut[0], POLLIN, 0}, {tubErr[0], POLLIN, 0}};
  std::string* destino[2] = {&s.out, &s.err};
  for (int abiertos = 2; abiertos > 0;) {
    if (poll(fds, 2, 10000) <= 0) break; // a tool that hangs fails the test below
    for (int i = 0; i < 2; ++i) {
      if (fds[i].fd < 0 || fds[i].revents == 0) continue;
      char buf[4096];
      const ssize_t n = read(fds[i].fd, buf, sizeof buf);
      if (n > 0) {
        destino[i]->append(buf, static_cast<std::size_t>(n));
      } else {
        close(fds[i].fd), fds[i].fd = -1, --abiertos;
      }
    }
  }
  for (auto& f : fds)
    if (f.fd >= 0) close(f.fd);
  int status = 0;
  waitpid(pid, &status, 0);
  s.estado = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return s;
}

TEST(CliSintaxis, AcceptedTextsPrintTheirNormalForm) {
  const struct {
    std::vector<std::string> args;
    const char* salida;
  } casos[] = {
      {{"sintaxis", "2 * - - x"}, "2*x\n"},
      {{"sintaxis", "x\n"}, "x\n"},
      {{"sintaxis", "x ' nota"}, "x\n"},
      {{"sintaxis", "año·x^-2"}, "año·x^2\n"},
      {{"sintaxis", "--ecuacion", "y = x^2"}, "y=x^2\n"},
      {{"sintaxis", "--ecuacion", "y = x _\n+ 1"}, "y=x+1\n"},
      {{"sintaxis", "--desigualdad", "x => 2"}, "x=>2\n"},
      {{"sintaxis", "--desigualdad", "x = 2"}, "x=2\n"},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(testing::PrintToString(c.args));
    const Salida s = Ejecuta(c.args);
    EXPECT_EQ(s.estado, 0) << s.err;
    EXPECT_EQ(s.out, c.salida);
    EXPECT_EQ(s.err, "");
  }
}

TEST(CliSintaxis, RefusedTextsReportLineAndColumnFromOne) {
  const struct {
    std::vector<std::string> args;
    const char* error;
  } casos[] = {
      {{"sintaxis", "y = x^2"}, "línea 1, columna 3: Se esperaba fin de archivo"},
      {{"sintaxis", ""}, "línea 1, columna 1: Se esperaba expresión"},
      {{"sintaxis", "x +\ny"}, "línea 1, columna 4: Se esperaba expresión"},
      {{"sintaxis", "x\ny"}, "línea 2, columna 1: Se esperaba fin de archivo"},
      {{"sintaxis", "x\r\ny"}, "línea 2, columna 1: Se esperaba fin de archivo"}, // CR LF kept
      {{"sintaxis", "año ñu"}, "línea 1, columna 5: Se esperaba fin de archivo"},
      {{"sintaxis", "sin x"}, "línea 1, columna 5: Se esperaba ("},
      {{"sintaxis", "1E999"}, "línea 1, columna 1: Desbordamiento"},
      {{"sintaxis", "--ecuacion", "x"}, "línea 1, columna 2: Se esperaba ="},
      {{"sintaxis", "--desigualdad", "x 2"},
       "línea 1, columna 3: Se esperaba = ó > ó < ó >= ó <= ó <>"},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(testing::PrintToString(c.args));
    const Salida s = Ejecuta(c.args);
    EXPECT_EQ(s.estado, 1);
    EXPECT_EQ(s.out, "");
    EXPECT_EQ(s.err, std::string(c.error) + "\n");
  }
}

TEST(CliSintaxis, UsageErrorsExitWithTwo) {
  const std::vector<std::vector<std::string>> casos = {{},
                                                       {"sintaxis"},
                                                       {"sintaxis", "--bogus", "x"},
                                                       {"sintaxis", "--ecuacion"},
                                                       {"frobnicar", "x"}};
  for (const auto& args : casos) {
    const Salida s = Ejecuta(args);
    EXPECT_EQ(s.estado, 2) << testing::PrintToString(args);
    EXPECT_FALSE(s.err.empty()) << testing::PrintToString(args);
  }
}

TEST(CliSintaxis, HelpAndVersion) {
  const Salida ayuda = Ejecuta({"--help"});
  EXPECT_EQ(ayuda.estado, 0);
  EXPECT_NE(ayuda.out.find("sintaxis"), std::string::npos) << ayuda.out;
  EXPECT_NE(ayuda.out.find("--desigualdad"), std::string::npos) << ayuda.out;
  const Salida version = Ejecuta({"--version"});
  EXPECT_EQ(version.estado, 0);
  EXPECT_NE(version.out.find(MIRKAL_VERSION), std::string::npos) << version.out;
}

} // namespace
