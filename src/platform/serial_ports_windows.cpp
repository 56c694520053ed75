#include <QSettings>
#include <QString>
#include <QStringList>
#include <algorithm>

#include "platform/serial_ports.h"

namespace sorvane {

std::vector<SerialPortEntry> ListSerialPorts() {
  const QSettings devices("HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM",
                          QSettings::NativeFormat);
  std::vector<SerialPortEntry> ports;
  for (const QString& device : devices.allKeys()) {
    ports.push_back({devices.value(device).toString().toStdString(), device.toStdString()});
  }
  std::ranges::sort(ports, {}, &SerialPortEntry::name);
  return ports;
}

// The system knows, and keeps it to itself.
std::string PortHolder(const std::filesystem::path&) { return {}; }

}  // namespace sorvane
