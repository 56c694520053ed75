"""Words beside a window: what another program or a file says, put into a picture of the screen."""

import subprocess

WIDTH = 420  # pixels
LINE = 26  # pixels of height
ROOM = 14  # pixels around the lines
ABOVE_BOTTOM = 130  # pixels from the picture's lower edge
DARK = "#1d232a"
TITLE = ("-background", "#34506b", "-fill", "white", "-font", "DejaVu-Sans", "-pointsize", "13",
         "-gravity", "center")
WORDS = ("-background", DARK, "-fill", "#e8e8e8", "-font", "DejaVu-Sans-Mono", "-pointsize", "18",
         "-gravity", "west")


def _row(text, width):
    # What has a meaning in labels stands for itself.
    plain = text.replace("\\", "\\\\").replace("%", "%%")
    return ("-size", f"{width}x{LINE}", f"label:{plain}")


def put_panel(picture, title, lines):
    """Puts lines under a title into a PNG file, like a window of its own in the lower middle."""
    rows = [part for line in lines for part in _row(line, WIDTH - 2 * ROOM)]
    subprocess.run(
        ["convert", str(picture),
         "(", "(", *TITLE, *_row(title, WIDTH), ")",
         "(", *WORDS, *rows, "-append", "-bordercolor", DARK, "-border", str(ROOM), ")",
         "-append", "-bordercolor", "black", "-border", "1", ")",
         "-gravity", "south", "-geometry", f"+0+{ABOVE_BOTTOM}", "-composite", str(picture)],
        stdin=subprocess.DEVNULL, check=True)
