#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include <cstdlib>
#include <sqlite3.h>

// A bare window with the given number of widgets and five small queries: what a screen's start is
// compared with. start-baseline WIDGETS DATABASE; ends as soon as the window is painted.

namespace {

void ask(const char* path)
{
  sqlite3* database = nullptr;
  if (sqlite3_open(path, &database) != SQLITE_OK)
    std::exit(1);
  for (int i = 0; i < 5; ++i)
    sqlite3_exec(database, "select Name,Num from TabDotSet", nullptr, nullptr, nullptr);
  sqlite3_close(database);
}

QWidget* makeWidget(int index, QWidget* parent)
{
  switch (index % 3) {
  case 0: return new QLabel(QStringLiteral("单位名称"), parent);
  case 1: return new QLineEdit(parent);
  default: {
    QToolButton* const button = new QToolButton(parent);
    button->setText(QStringLiteral("保存"));
    return button;
  }
  }
}

class Window : public QWidget {
public:
  explicit Window(int widgets)
  {
    QGridLayout* const layout = new QGridLayout(this);
    for (int i = 0; i < widgets; ++i)
      layout->addWidget(makeWidget(i, this), i / 8, i % 8);
    resize(1024, 700);
  }

  bool isPainted = false;

protected:
  void paintEvent(QPaintEvent*) override { isPainted = true; }
};

} // namespace

int main(int argc, char** argv)
{
  QApplication application(argc, argv);
  if (argc != 3)
    return 2;
  Window window(std::atoi(argv[1]));
  ask(argv[2]);
  window.show();
  while (!window.isPainted)
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  QApplication::processEvents();
  std::_Exit(0);
}
