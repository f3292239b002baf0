// The help window opens each topic at its own page; and the pages tell the
// truth: every message the models can be made to show is explained in the
// page of errors, and every worked example is what the derivation command
// writes.

#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTextBrowser>
#include <QTextDocument>
#include <gtest/gtest.h>

#include "app/VentanaAyuda.h"
#include "commands/OrdenDerivar.h"
#include "differentiation/Derivada.h"
#include "editor/AlmacenAjustes.h"
#include "editor/Buscador.h"
#include "editor/Presentacion.h"
#include "lang/SintaxExp.h"

namespace {

QString Pagina(const QString& nombre) {
  QFile archivo(VentanaAyuda::CarpetaAyuda() + "/" + nombre);
  return archivo.open(QIODevice::ReadOnly) ? QString::fromUtf8(archivo.readAll()) : QString();
}

TEST(AyudaTest, CadaTemaAbreSuPagina) {
  // Without pages the window would tell so in a message box, which no test
  // may wait on.
  ASSERT_FALSE(VentanaAyuda::CarpetaAyuda().isEmpty());
  VentanaAyuda ventana;
  const QString indice = Pagina("index.html");
  for (const QString tema : {"lenguaje", "ordenes", "configuracion", "errores", "ejemplos"}) {
    ventana.Muestra(tema);
    EXPECT_TRUE(ventana.isVisible());
    EXPECT_EQ(ventana.Navegador()->source().fileName(), tema + ".html");
    EXPECT_GT(ventana.Navegador()->toPlainText().size(), 300) << tema.toStdString();
    EXPECT_TRUE(indice.contains("href=\"" + tema + ".html\"")) << tema.toStdString();
  }
  ventana.Muestra("no-existe");
  EXPECT_EQ(ventana.Navegador()->source().fileName(), "index.html");
  ventana.Muestra("errores");
  QTest::mouseClick(ventana.findChild<QPushButton*>("cmdContenido"), Qt::LeftButton);
  EXPECT_EQ(ventana.Navegador()->source().fileName(), "index.html");
}

// The messages are provoked from the models themselves, so that a reworded
// message without its help fails here.
TEST(AyudaTest, LosMensajesDelProgramaEstanExplicados) {
  std::vector<std::string> mensajes{Buscador::kArgumentosNoValidos, Buscador::kNoEncontrado,
                                    Buscador::kPregunta};
  SintaxExp sintaxis;
  for (const std::string& ecuacion : std::initializer_list<std::string>{
           "y = ", "y x", "y = Sin x", "y = Sin(x", "y = x)", "y = 1e400*x",
           "y = " + std::string(300, '(') + "x" + std::string(300, ')')}) {
    EXPECT_FALSE(sintaxis.SintaxEcu(ecuacion)) << ecuacion;
    mensajes.push_back(sintaxis.ErrDesc());
  }
  EXPECT_FALSE(sintaxis.SintaxDes("y x"));
  mensajes.push_back(sintaxis.ErrDesc());
  for (const char* ecuacion : {"dy_dx = x", "x = 3"}) {
    Derivada d;
    d.Derivar(ecuacion);
    EXPECT_NE(d.ErrNumber(), 0) << ecuacion;
    mensajes.push_back(d.ErrDesc());
  }
  for (const char* variable : {"1a", "x"}) {
    Derivada d;
    d.VarDep(variable);
    mensajes.push_back(d.ErrDesc());
  }
  for (const auto& [cre, vd, vi] :
       {std::tuple("301", "y", "x"), std::tuple("5", "1y", "x"), std::tuple("5", "y", "Y")}) {
    const auto fallo = CompruebaConfig(cre, vd, vi);
    mensajes.push_back(fallo ? fallo->mensaje : "");
  }
  // The derivative's name as a variable: refused here, or else by the engine
  // with a message of its own that is already listed.
  if (const auto fallo = CompruebaConfig("5", "dy_dx", "x")) mensajes.push_back(fallo->mensaje);
  AlmacenEnMemoria almacen;
  Presentacion p(almacen);
  p.AlMensaje = [&](const std::string& m) { mensajes.push_back(m); };
  p.SetEspTab(0);
  p.SetTamFuente(5);
  for (const auto set : {&Presentacion::SetColorLetra, &Presentacion::SetColorPC,
                         &Presentacion::SetColorLetraSel, &Presentacion::SetColorFondoSel,
                         &Presentacion::SetColorComment, &Presentacion::SetColorFondoEditor})
    (p.*set)(16);

  QTextDocument errores;
  errores.setHtml(Pagina("errores.html"));
  const QString texto = errores.toPlainText().simplified(); // line breaks read as blanks
  EXPECT_GE(mensajes.size(), 26u);
  for (const std::string& m : mensajes)
    EXPECT_TRUE(!m.empty() && texto.contains(QString::fromStdString(m).simplified())) << m;
}

// The lines of a text without the blanks at their ends.
QStringList Lineas(QString texto) {
  QStringList lineas = texto.replace("\r\n", "\n").split('\n');
  for (QString& l : lineas)
    while (l.endsWith(' '))
      l.chop(1);
  return lineas;
}

// A <pre class="ejemplo"> holds the document as the user writes it and then,
// in a <span class="escrito">, what the command appends; its attributes name
// the settings, and an example of a failure names its message instead.
TEST(AyudaTest, LosEjemplosDicenLoQueEscribeElPrograma) {
  const QRegularExpression bloque(R"(<pre class="ejemplo"([^>]*)>(.*?)</pre>)",
                                  QRegularExpression::DotMatchesEverythingOption);
  int ejemplos = 0;
  for (const QString& pagina : QDir(VentanaAyuda::CarpetaAyuda()).entryList({"*.html"}))
    for (auto it = bloque.globalMatch(Pagina(pagina)); it.hasNext(); ++ejemplos) {
      const auto m = it.next();
      const auto atributo = [&](const char* nombre, const std::string& falta) {
        const auto a = QRegularExpression(QString(nombre) + "=\"([^\"]*)\"").match(m.captured(1));
        return a.hasMatch() ? a.captured(1).toStdString() : falta;
      };
      ConfigDerivacion config;
      config.VarDep = atributo("data-vd", config.VarDep);
      config.VarInd = atributo("data-vi", config.VarInd);
      config.CifRedExt = std::stoi(atributo("data-cifras", std::to_string(config.CifRedExt)));
      config.OutFracc = atributo("data-fracciones", "") != "no";
      const std::string error = atributo("data-error", "");
      QString texto = m.captured(2);
      texto.replace("&lt;", "<").replace("&gt;", ">").replace("&amp;", "&");
      const qsizetype escrito = texto.indexOf("<span class=\"escrito\">");
      QString documento = texto.left(escrito < 0 ? texto.size() : escrito);
      if (documento.endsWith('\n')) documento.chop(1);
      documento.replace("\n", "\r\n");
      texto.remove("<span class=\"escrito\">").remove("</span>");
      const SalidaDerivar salida =
          EjecutaDerivar(documento.toStdString(), config, atributo("data-pasos", "") == "si");
      SCOPED_TRACE(pagina.toStdString() + ": " + documento.toStdString());
      if (!error.empty()) {
        EXPECT_NE(salida.ErrNumber, 0);
        EXPECT_EQ(salida.ErrDesc, error);
      } else {
        EXPECT_EQ(salida.ErrNumber, 0) << salida.ErrDesc;
        EXPECT_GE(escrito, 0);
        EXPECT_EQ(Lineas(documento + QString::fromStdString(salida.Texto())), Lineas(texto));
      }
    }
  EXPECT_GE(ejemplos, 20);
}

} // namespace
