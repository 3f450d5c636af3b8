#include <QApplication>
#include <QLabel>
#include <QMainWindow>

// Placeholder main form until the grid paints: it proves the demo builds and starts.
int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QMainWindow window;
  window.setWindowTitle("QuilDB Demo");
  auto* label = new QLabel("QuilDB demo: the grid arrives with the grid spine.", &window);
  label->setAlignment(Qt::AlignCenter);
  window.setCentralWidget(label);
  window.resize(1024, 640);
  window.show();
  return app.exec();
}
