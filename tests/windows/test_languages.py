"""Choosing a language: captions on the screen, and names in the settings, in code page 1252."""

from app import LANGUAGES
from bench import Scene
from test_starting import IDLE, ITALIAN
from wait import wait_for

FRENCH = ["Connect", "Mot de passe", "Réglages", "Prix", "Remises", "Paiement", "Set", "Horloge",
          "Ventes", "Alarmes", "Langues", "Windows", "COM", "?"]


class Languages(Scene):
    def test_a_file_with_an_accent_is_listed_chosen_saved_and_found_again(self):
        (self.folder / "Francais.lng").rename(self.folder / "Français.lng")
        self.start()
        self.wait_enabled(IDLE)
        self.assertEqual(self.app.captions(), ITALIAN)
        self.app.choose_below(LANGUAGES, "Français")
        wait_for("French menu", lambda: self.app.captions() == FRENCH)
        self.take_picture("french")
        saved = "Com=1\r\nLingua=Français\r\n".encode("cp1252")
        self.assertEqual(self.settings.read_bytes(), saved)
        self.close_app()
        self.assertEqual(self.settings.read_bytes(), saved)
        self.start()
        self.wait_enabled(IDLE)
        self.assertEqual(self.app.captions(), FRENCH)
        self.assertEqual(self.app.checked(LANGUAGES), ["Français"])
