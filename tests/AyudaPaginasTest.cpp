// The help pages, read as text, tell the truth: every message the program can
// show is explained in the page of errors, and every worked example is what
// the derivation command writes.

#include <filesystem>
#include <regex>

#include "Casos.h"
#include "commands/OrdenDerivar.h"
#include "differentiation/Derivada.h"
#include "editor/Buscador.h"
#include "editor/Presentacion.h"
#include "lang/SintaxExp.h"

namespace {

std::string Pagina(const std::string& nombre) {
  std::ifstream f(MIRKAL_FUENTES "/help/" + nombre);
  return std::string(std::istreambuf_iterator<char>(f), {});
}

// What a reader sees of some HTML: no tags, the entities the pages use undone
// and, with `junto`, each run of blanks and line breaks one blank.
std::string Visible(std::string html, bool junto = false) {
  const char* const cambios[] = {
      "<[^>]*>", "", "&lt;", "<", "&gt;", ">", "&nbsp;", " ", junto ? "\\s+" : "$^", " "};
  for (int i = 0; i < 10; i += 2)
    html = std::regex_replace(html, std::regex(cambios[i]), cambios[i + 1]);
  return html;
}

// The messages are provoked from the models, by the inputs of
// tests/casos/ayuda.txt and here, so that a reworded one must be explained.
TEST(AyudaPaginas, CadaMensajeEstaExplicado) {
  std::vector<std::string> mensajes{Buscador::kArgumentosNoValidos, Buscador::kNoEncontrado,
                                    Buscador::kPregunta};
  AlmacenEnMemoria almacen;
  Presentacion p(almacen);
  p.AlMensaje = [&](const std::string& m) { mensajes.push_back(m); };
  EXPECT_FALSE(p.SetTamFuente(99));
  for (const auto fija :
       {&Presentacion::SetEspTab, &Presentacion::SetColorLetra, &Presentacion::SetColorPC,
        &Presentacion::SetColorLetraSel, &Presentacion::SetColorFondoSel,
        &Presentacion::SetColorComment, &Presentacion::SetColorFondoEditor})
    EXPECT_FALSE((p.*fija)(99));
  for (const prueba::Caso& c : prueba::LeeCasos("ayuda.txt")) {
    const std::string texto = prueba::Expande(c[1]);
    SintaxExp s;
    Derivada d;
    if (c[0] == "ecuacion") s.SintaxEcu(texto);
    if (c[0] == "desigualdad") s.SintaxDes(texto);
    if (c[0] == "derivada") d.Derivar(texto);
    if (c[0] == "vardep") d.VarDep(texto);
    const auto fallo = c[0] == "config" ? CompruebaConfig(texto, c[2], c[3]) : std::nullopt;
    mensajes.push_back(s.ErrDesc() + d.ErrDesc() + (fallo ? fallo->mensaje : "")); // "": accepted
  }
  const std::string errores = Visible(Pagina("errores.html"), true);
  for (const std::string& m : mensajes)
    EXPECT_TRUE(!m.empty() && errores.find(m) != std::string::npos) << m;
}

// A <pre class="ejemplo"> holds the document as the user writes it and then,
// in a <span class="escrito">, what the command appends; its attributes name
// the settings, and an example of a failure names its message instead. The
// contents page links to every page.
TEST(AyudaPaginas, LosEjemplosDicenLoQueEscribeElPrograma) {
  const std::regex bloque(R"(<pre class="ejemplo"([^>]*)>([\s\S]*?)</pre>)");
  const std::regex atributo(R"#((data-\w+)="([^"]*)")#"), blancosAlFin(" *\r?(\n|$)");
  const std::string escrito = "<span class=\"escrito\">";
  int ejemplos = 0;
  for (const auto& archivo : std::filesystem::directory_iterator(MIRKAL_FUENTES "/help")) {
    const std::string nombre = archivo.path().filename().string(), pagina = Pagina(nombre);
    EXPECT_TRUE(nombre == "index.html" ||
                Pagina("index.html").find("href=\"" + nombre) != std::string::npos);
    for (std::sregex_iterator it(pagina.begin(), pagina.end(), bloque), fin; it != fin;
         ++it, ++ejemplos) {
      std::map<std::string, std::string> a{
          {"data-vd", ConfigDerivacion().VarDep},
          {"data-vi", ConfigDerivacion().VarInd},
          {"data-cifras", std::to_string(ConfigDerivacion().CifRedExt)}};
      const std::string atributos = (*it)[1], texto = (*it)[2];
      for (std::sregex_iterator at(atributos.begin(), atributos.end(), atributo); at != fin; ++at)
        a[(*at)[1]] = (*at)[2];
      const std::string documento = std::regex_replace( // up to the line break before it
          Visible(texto.substr(0, texto.find(escrito) - 1)), std::regex("\n"), "\r\n");
      const SalidaDerivar salida = EjecutaDerivar(
          documento,
          {a["data-vd"], a["data-vi"], std::stoi(a["data-cifras"]), a["data-fracciones"] != "no"},
          a["data-pasos"] == "si");
      SCOPED_TRACE(nombre + ": " + documento);
      EXPECT_EQ(salida.ErrDesc, a["data-error"]);
      EXPECT_EQ(a["data-error"].empty(), texto.find(escrito) != std::string::npos);
      EXPECT_EQ(std::regex_replace(documento + salida.Texto(), blancosAlFin, "$1"),
                std::regex_replace(Visible(texto), blancosAlFin, "$1"));
    }
  }
  EXPECT_GE(ejemplos, 20);
}

} // namespace
