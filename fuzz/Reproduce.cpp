// Replays a fuzz target on every file of the folders named on the command
// line, without libFuzzer: the seeds, among them every input that ever made
// a target fail, run in each test run with the main build's compiler and
// sanitizers. A failing property aborts with its message, and the seed that
// made it fail is named last.

#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "LectorFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam);
// Present when a sanitizer's runtime is linked in, to call back as it ends the run.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*)());

static std::string enCurso; // the line that names the seed being replayed

// Without allocating: the run may be dying inside the allocator.
static void NombraSemilla() {
  [[maybe_unused]] const auto n = write(STDERR_FILENO, enCurso.data(), enCurso.size());
}

int main(int argc, char** argv) {
  if (__sanitizer_set_death_callback != nullptr) __sanitizer_set_death_callback(NombraSemilla);
  std::signal(SIGABRT, [](int) { NombraSemilla(); }); // abort() then ends the run
  std::vector<std::filesystem::path> archivos;
  for (int i = 1; i < argc; ++i) // a folder that is not there throws, and ends the run
    for (const auto& e : std::filesystem::directory_iterator(argv[i]))
      if (e.is_regular_file()) archivos.push_back(e.path());
  if (archivos.empty()) return std::fprintf(stderr, "ninguna semilla que reproducir\n"), 2;
  std::sort(archivos.begin(), archivos.end()); // every run replays the same sequence
  for (const auto& ruta : archivos) {
    enCurso = "\nsemilla que falla: " + ruta.string() + "\n";
    std::ifstream f(ruta, std::ios::binary);
    // A copy of its own, so that reading past the end shows as an overflow.
    const std::vector<std::uint8_t> datos((std::istreambuf_iterator<char>(f)), {});
    LLVMFuzzerTestOneInput(datos.data(), datos.size());
  }
  std::printf("%zu semillas sin fallos\n", archivos.size());
}
