"""A screen that is smaller than what the pages ask for."""

import math
from unittest.mock import patch

import desk
from scene import Scene

SCALE = 3
# In the program's pixels, of which each is a square on the screen.
WIDTH, HEIGHT = (math.ceil(int(pixels) / SCALE) for pixels in desk.SCREEN.split("x")[:2])
LAMPS = 3


class SmallScreen(Scene):
    def test_the_frame_stays_within_the_screen_and_the_lamps_in_view(self):
        with patch.dict(self.desk.environment, {"QT_SCALE_FACTOR": str(SCALE)}):
            self.start()
        frame = self.program.frame()
        lamps = [label for label in frame.all("label") if label.name.endswith(": off")]
        self.assertEqual(len(lamps), LAMPS)
        for element in (frame, *lamps):
            left, top, width, height = element.place
            self.assertGreater(width * height, 0, element.name)
            self.assertGreaterEqual(min(left, top), 0, element.name)
            self.assertLessEqual(left + width, WIDTH, element.name)
            self.assertLessEqual(top + height, HEIGHT, element.name)
