"""Starting: the settings are read, and the files beside the program, wherever it is started."""

from app import COM, LANGUAGES
from bench import Scene, bench

IDLE = [True] + [False] * 9 + [True] * 4
ITALIAN = ["Connect", "Password", "Impostazioni", "Prezzi", "Sconti", "Pagamento", "Set",
           "Orologio", "Vendite", "Allarmi", "Lingue", "Windows", "COM", "?"]
GERMAN = ["Connect", "Passwort", "Einstellungen", "Preise", "Rabatte", "Zahlung", "Set", "Uhr",
          "Verkäufe", "Alarme", "Sprachen", "Windows", "COM", "?"]


class Starting(Scene):
    def test_port_and_language_are_those_of_the_settings(self):
        self.settings.write_bytes(b"Com=3\r\nLingua=Deutsch\r\n")
        self.start(cwd=bench.prefix.drive_c)
        self.take_picture("start")
        self.wait_enabled(IDLE)
        self.assertEqual(self.app.captions(), GERMAN)
        self.assertEqual(self.app.checked(COM), ["COM3"])
        self.assertEqual(self.app.checked(LANGUAGES), ["Deutsch"])
        self.close_app()
        self.assertEqual(self.settings.read_bytes(), b"Com=3\r\nLingua=Deutsch\r\n")

    def test_a_program_on_another_drive_than_the_current_one_finds_its_files(self):
        self.put_program(bench.prefix.drive_c / self.scene)
        self.start(cwd="/")
        self.wait_enabled(IDLE)
        self.assertEqual(self.app.captions(), ITALIAN)
        self.close_app()
        self.assertEqual(self.settings.read_bytes(), b"Com=1\r\nLingua=Italiano\r\n")
