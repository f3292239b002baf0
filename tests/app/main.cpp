// The desktop program's tests need one QApplication for all of them.
#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
  // Without a display the tests still run: Qt draws off screen.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Mirkal"));
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
