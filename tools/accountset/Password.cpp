#include "Password.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace Password {
namespace {

constexpr char Variable[] = "ACCOUNTSET_PASSWORD";

// The terminal from which the program was started, with nothing shown of what is typed. Keys that would end the
// program are taken as they are until then, because they would leave it so.
class Terminal {
public:
  Terminal()
  {
    if (m_descriptor < 0 || tcgetattr(m_descriptor, &m_before) != 0)
      return;
    termios quiet = m_before;
    quiet.c_lflag &= ~tcflag_t(ECHO | ISIG);
    m_isQuiet = tcsetattr(m_descriptor, TCSADRAIN, &quiet) == 0;
  }
  ~Terminal()
  {
    if (m_isQuiet)
      tcsetattr(m_descriptor, TCSADRAIN, &m_before);
    if (m_descriptor >= 0)
      close(m_descriptor);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  bool isQuiet() const { return m_isQuiet; }
  bool write(const QByteArray& text) const { return ::write(m_descriptor, text.constData(), std::size_t(text.size())) == text.size(); }
  QByteArray line() const
  {
    QByteArray typed;
    for (char c = 0; read(m_descriptor, &c, 1) == 1 && c != '\n';)
      typed.append(c);
    return typed;
  }

private:
  int m_descriptor = open("/dev/tty", O_RDWR | O_CLOEXEC);
  termios m_before = {};
  bool m_isQuiet = false;
};

} // namespace

tl::expected<void, QString> supply(AccountSetLocation& location)
{
  if (!location.isServer())
    return {};
  if (!location.server.password.isEmpty())
    return tl::unexpected(QStringLiteral("参数中的密码本机的所有人都能看到；请写 server://用户@主机:端口/数据库，并设置 %1，或等待询问")
                              .arg(QLatin1String(Variable)));
  if (qEnvironmentVariableIsSet(Variable)) {
    location.server.password = qEnvironmentVariable(Variable);
    return {};
  }
  const Terminal terminal;
  if (!terminal.isQuiet() || !terminal.write(QStringLiteral("%2 的用户 %1 的密码：").arg(location.server.user, location.text()).toUtf8()))
    return tl::unexpected(QStringLiteral("没有可以询问密码的终端；请设置 %1").arg(QLatin1String(Variable)));
  location.server.password = QString::fromUtf8(terminal.line());
  terminal.write("\n");
  return {};
}

} // namespace Password
