"""The choice of the USB adapter, whose port stands in the registry."""

from app import COM
from bench import Scene, bench
from lines import Box

DRIVER = r"HKLM\SYSTEM\CurrentControlSet\Services\FTSER2K\Enum"
DEVICE = r"FTDIBUS\VID_0403+PID_6001+A5+0000"
PARAMETERS = rf"HKLM\SYSTEM\CurrentControlSet\Enum\{DEVICE}\Device Parameters"
OLD_PARAMETERS = rf"HKLM\Enum\{DEVICE}"
NOT_AVAILABLE = Box(
    "Error", ["USB port not available", "Please select a different COM port"], ["OK"], "red")


class Adapter(Scene):
    def plug_in(self, port):
        """Makes the registry tell of an adapter as its driver does."""
        self.addCleanup(bench.prefix.delete_key, DRIVER)
        self.addCleanup(bench.prefix.delete_key, PARAMETERS)
        bench.prefix.set_value(DRIVER, "0", DEVICE)
        bench.prefix.set_value(PARAMETERS, "PortName", port)

    def test_its_port_is_saved_and_marked_and_one_of_two_digits_too(self):
        self.plug_in("COM5")
        self.start()
        self.app.choose_below(COM, "USB")
        self.app.unfold(COM)
        self.take_picture("usb")
        self.app.fold()
        self.assertEqual(self.app.checked(COM), ["USB"])
        self.assertEqual(self.settings.read_bytes(), b"Com=5\r\nLingua=Italiano\r\n")
        self.app.choose_below(COM, "COM2")
        bench.prefix.set_value(PARAMETERS, "PortName", "COM12")
        self.app.choose_below(COM, "USB")
        self.assertEqual(self.app.checked(COM), ["USB"])
        self.assertEqual(self.settings.read_bytes(), b"Com=12\r\nLingua=Italiano\r\n")

    def test_without_one_the_box_says_so_nothing_is_marked_and_nothing_is_saved(self):
        self.start()
        self.settings.unlink()
        self.app.choose_below(COM, "USB")
        self.assertEqual(self.app.box(), NOT_AVAILABLE)
        self.take_picture("no-usb")
        self.app.answer("Return")
        self.assertEqual(self.app.checked(COM), [])
        self.assertFalse(self.settings.exists())

    def test_the_layout_of_the_oldest_windows_comes_first(self):
        self.plug_in("COM5")
        self.plug_in_the_old_way("COM7")
        self.start()
        self.app.choose_below(COM, "USB")
        self.assertEqual(self.app.checked(COM), ["USB"])
        self.assertEqual(self.settings.read_bytes(), b"Com=7\r\nLingua=Italiano\r\n")

    def plug_in_the_old_way(self, port):
        devices = r"HKEY_DYN_DATA\Config Manager\Enum"
        self.addCleanup(self.import_registry, f"[-{devices}]\n")
        hardware = DEVICE.replace("\\", "\\\\")
        self.import_registry(f'[{devices}\\C1]\n"HardWareKey"="ROOT\\\\NET"\n\n'
                             f'[{devices}\\C2]\n"HardWareKey"="{hardware}"\n')
        self.addCleanup(bench.prefix.delete_key, OLD_PARAMETERS)
        bench.prefix.set_value(OLD_PARAMETERS, "PortName", port)

    def import_registry(self, text):
        """Changes what only the registry editor can reach."""
        file = self.parent / "change.reg"
        file.write_text(f"REGEDIT4\n\n{text}", encoding="ascii")
        bench.prefix.run("regedit", "/S", bench.prefix.windows_path(file))
