#include <unistd.h>

#include <QCoreApplication>
#include <string>

// The least that a program of Qt Core is: what the memory of the command line program is measured
// against. It writes more than the pipe of its output takes, as that one does.
int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  const std::string text(1 << 16, '\n');
  return write(STDOUT_FILENO, text.data(), text.size()) < 0 ? 1 : 0;
}
