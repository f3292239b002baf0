// The help window and its pages: every topic the program asks for opens its
// own page, and every message the program can be made to show is explained
// in the page of errors. The messages are provoked from the models
// themselves, so that a reworded message without its help fails here.

#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTextBrowser>
#include <QTextDocument>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/VentanaAyuda.h"
#include "commands/ConfigDerivacion.h"
#include "commands/OrdenDerivar.h"
#include "differentiation/Derivada.h"
#include "editor/AlmacenAjustes.h"
#include "editor/Buscador.h"
#include "editor/Presentacion.h"
#include "lang/SintaxExp.h"

namespace {

QString TextoDePagina(const QString& pagina) {
  QFile archivo(VentanaAyuda::CarpetaAyuda() + "/" + pagina);
  if (!archivo.open(QIODevice::ReadOnly)) return QString();
  QTextDocument doc;
  doc.setHtml(QString::fromUtf8(archivo.readAll()));
  // Line breaks inside a paragraph are blanks to a reader.
  return doc.toPlainText().simplified();
}

TEST(AyudaTest, CadaTemaAbreSuPagina) {
  ASSERT_FALSE(VentanaAyuda::CarpetaAyuda().isEmpty());
  VentanaAyuda ventana;
  const std::vector<std::pair<QString, QString>> temas{
      {"contenido", "index.html"}, {"lenguaje", "lenguaje.html"},
      {"ordenes", "ordenes.html"}, {"configuracion", "configuracion.html"},
      {"errores", "errores.html"}, {"ejemplos", "ejemplos.html"},
      {"no-existe", "index.html"}};
  for (const auto& [tema, pagina] : temas) {
    ventana.Muestra(tema);
    EXPECT_TRUE(ventana.isVisible()) << tema.toStdString();
    EXPECT_EQ(ventana.Navegador()->source().fileName(), pagina) << tema.toStdString();
    EXPECT_FALSE(ventana.Navegador()->documentTitle().isEmpty()) << pagina.toStdString();
    EXPECT_GT(ventana.Navegador()->toPlainText().size(), 300) << pagina.toStdString();
  }
  ventana.Muestra("errores");
  QTest::mouseClick(ventana.findChild<QPushButton*>("cmdContenido"), Qt::LeftButton);
  EXPECT_EQ(ventana.Navegador()->source().fileName(), "index.html");
  // The contents lead to every other page.
  QFile indice(VentanaAyuda::CarpetaAyuda() + "/index.html");
  ASSERT_TRUE(indice.open(QIODevice::ReadOnly));
  const QString html = QString::fromUtf8(indice.readAll());
  for (const auto& [tema, pagina] : temas) {
    if (pagina != "index.html") {
      EXPECT_TRUE(html.contains("href=\"" + pagina + "\"")) << pagina.toStdString();
    }
  }
}

TEST(AyudaTest, LosMensajesDelProgramaEstanExplicados) {
  std::vector<std::string> mensajes;

  SintaxExp sintaxis;
  for (const char* ecuacion : {"y = ", "y x", "y = Sin x", "y = Sin(x", "y = x)"}) {
    EXPECT_FALSE(sintaxis.SintaxEcu(ecuacion)) << ecuacion;
    mensajes.push_back(sintaxis.ErrDesc());
  }
  EXPECT_FALSE(sintaxis.SintaxDes("y x"));
  mensajes.push_back(sintaxis.ErrDesc());
  EXPECT_FALSE(sintaxis.SintaxEcu("y = " + std::string(300, '(') + "x" + std::string(300, ')')));
  mensajes.push_back(sintaxis.ErrDesc());
  EXPECT_FALSE(sintaxis.SintaxEcu("y = 1e400*x"));
  mensajes.push_back(sintaxis.ErrDesc());

  for (const char* ecuacion : {"dy_dx = x", "x = 3"}) {
    Derivada d;
    d.Derivar(ecuacion);
    EXPECT_NE(d.ErrNumber(), 0) << ecuacion;
    mensajes.push_back(d.ErrDesc());
  }
  {
    Derivada d;
    d.VarDep("1a");
    mensajes.push_back(d.ErrDesc());
    d.VarDep("x");
    mensajes.push_back(d.ErrDesc());
  }

  for (const auto& [cre, vd, vi] : std::vector<std::tuple<std::string, std::string, std::string>>{
           {"301", "y", "x"}, {"5", "1y", "x"}, {"5", "y", "Y"}}) {
    const auto fallo = CompruebaConfig(cre, vd, vi);
    ASSERT_TRUE(fallo.has_value()) << cre << vd << vi;
    mensajes.push_back(fallo->mensaje);
  }

  AlmacenEnMemoria almacen;
  Presentacion p(almacen);
  p.AlMensaje = [&](const std::string& m) { mensajes.push_back(m); };
  p.SetEspTab(0);
  p.SetTamFuente(5);
  for (const auto set : {&Presentacion::SetColorLetra, &Presentacion::SetColorPC,
                         &Presentacion::SetColorLetraSel, &Presentacion::SetColorFondoSel,
                         &Presentacion::SetColorComment, &Presentacion::SetColorFondoEditor})
    (p.*set)(16);

  // The derivative name as a variable: refused here, or else by the engine
  // when the command runs, with a message of its own that is already listed.
  if (const auto fallo = CompruebaConfig("5", "dy_dx", "x")) mensajes.push_back(fallo->mensaje);

  mensajes.push_back(Buscador::kArgumentosNoValidos);
  mensajes.push_back(Buscador::kNoEncontrado);
  mensajes.push_back(Buscador::kPregunta);

  const QString errores = TextoDePagina("errores.html");
  ASSERT_FALSE(errores.isEmpty());
  EXPECT_GE(mensajes.size(), 26u);
  for (const std::string& m : mensajes) {
    EXPECT_FALSE(m.empty());
    EXPECT_TRUE(errores.contains(QString::fromStdString(m).simplified())) << m;
  }
}

// The lines of a text without the blanks at their ends, "\r\n" read as "\n".
std::vector<std::string> Lineas(QString texto) {
  texto.replace("\r\n", "\n");
  std::vector<std::string> lineas;
  for (QString l : texto.split('\n')) {
    while (l.endsWith(' '))
      l.chop(1);
    lineas.push_back(l.toStdString());
  }
  return lineas;
}

// An attribute's value, or `falta` when the tag does not have it.
std::string Atributo(const QString& atributos, const QString& nombre,
                     const std::string& falta = "") {
  const auto m = QRegularExpression(nombre + "=\"([^\"]*)\"").match(atributos);
  return m.hasMatch() ? m.captured(1).toStdString() : falta;
}

// Every worked example of the help, a <pre class="ejemplo"> holding the
// document as the user writes it followed by what the command appends to it
// (in a <span class="escrito">), is run through the derivation command with
// the settings its attributes name. An example of a failure holds only the
// document and names its message.
TEST(AyudaTest, LosEjemplosDicenLoQueEscribeElPrograma) {
  const QDir carpeta(VentanaAyuda::CarpetaAyuda());
  const QRegularExpression bloque(R"(<pre class="ejemplo"([^>]*)>(.*?)</pre>)",
                                  QRegularExpression::DotMatchesEverythingOption);
  int ejemplos = 0;
  for (const QString& pagina : carpeta.entryList({"*.html"})) {
    QFile archivo(carpeta.filePath(pagina));
    ASSERT_TRUE(archivo.open(QIODevice::ReadOnly));
    const QString html = QString::fromUtf8(archivo.readAll());
    for (auto it = bloque.globalMatch(html); it.hasNext();) {
      const auto m = it.next();
      const QString atributos = m.captured(1);
      QString texto = m.captured(2);
      texto.replace("&lt;", "<").replace("&gt;", ">").replace("&amp;", "&");
      ConfigDerivacion config;
      config.VarDep = Atributo(atributos, "data-vd", config.VarDep);
      config.VarInd = Atributo(atributos, "data-vi", config.VarInd);
      config.CifRedExt =
          std::stoi(Atributo(atributos, "data-cifras", std::to_string(config.CifRedExt)));
      config.OutFracc = Atributo(atributos, "data-fracciones") != "no";
      const bool pasos = Atributo(atributos, "data-pasos") == "si";
      const std::string error = Atributo(atributos, "data-error");

      const QString marca = "<span class=\"escrito\">";
      const qsizetype escrito = texto.indexOf(marca);
      QString documento = texto.left(escrito < 0 ? texto.size() : escrito);
      if (documento.endsWith('\n')) documento.chop(1);
      documento.replace("\n", "\r\n");
      texto.remove(marca).remove("</span>");
      const SalidaDerivar salida = EjecutaDerivar(documento.toStdString(), config, pasos);
      const std::string donde = pagina.toStdString() + ": " + documento.toStdString();
      if (!error.empty()) {
        EXPECT_NE(salida.ErrNumber, 0) << donde;
        EXPECT_EQ(salida.ErrDesc, error) << donde;
      } else {
        EXPECT_EQ(salida.ErrNumber, 0) << donde << ": " << salida.ErrDesc;
        EXPECT_GE(escrito, 0) << donde;
        EXPECT_EQ(Lineas(documento + QString::fromStdString(salida.Texto())), Lineas(texto))
            << donde;
      }
      ++ejemplos;
    }
  }
  EXPECT_GE(ejemplos, 20);
}

} // namespace
