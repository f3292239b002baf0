// Replays a fuzz target on every file of the folders named on the command
// line, without libFuzzer: the seeds, among them every input that ever made
// a target fail, run in each test run with the main build's compiler and
// sanitizers. A failing property aborts with its message, and the seed that
// made it fail is named last.

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam);
// Defined only by the targets that need to set something up first.
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int* argc, char*** argv);

// Present when a sanitizer's runtime is linked in: it calls back before it
// ends the run.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*)());

namespace {

std::string enCurso; // the seed being replayed

// Without allocating: the run may be dying inside the allocator.
void NombraSemilla() {
  const char titulo[] = "\nsemilla que falla: ";
  [[maybe_unused]] auto n = write(STDERR_FILENO, titulo, sizeof titulo - 1);
  n = write(STDERR_FILENO, enCurso.data(), enCurso.size());
  n = write(STDERR_FILENO, "\n", 1);
}

void AlAbortar(int senal) {
  NombraSemilla();
  std::signal(senal, SIG_DFL);
  std::raise(senal);
}

} // namespace

int main(int argc, char** argv) {
  if (__sanitizer_set_death_callback != nullptr) __sanitizer_set_death_callback(NombraSemilla);
  std::signal(SIGABRT, AlAbortar);
  if (LLVMFuzzerInitialize != nullptr) LLVMFuzzerInitialize(&argc, &argv);
  std::vector<std::filesystem::path> archivos;
  for (int i = 1; i < argc; ++i) {
    const std::filesystem::path ruta = argv[i];
    if (!std::filesystem::is_directory(ruta)) {
      std::fprintf(stderr, "%s no es una carpeta\n", argv[i]);
      return 2;
    }
    for (const auto& e : std::filesystem::directory_iterator(ruta))
      if (e.is_regular_file()) archivos.push_back(e.path());
  }
  // In name order, so that two runs replay the same sequence.
  std::sort(archivos.begin(), archivos.end());
  if (archivos.empty()) {
    std::fprintf(stderr, "ninguna semilla que reproducir\n");
    return 2;
  }
  for (const auto& ruta : archivos) {
    enCurso = ruta.string();
    std::ifstream f(ruta, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
    // A copy of its own, so that reading past the end shows as an overflow.
    const std::vector<std::uint8_t> datos(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(datos.data(), datos.size());
  }
  std::printf("%zu semillas sin fallos\n", archivos.size());
  return 0;
}
