"""Reading pictures of a screen: where something is drawn, what words that is, how strong it is.

Ink is a picture of how far each pixel is from its background, from 0 to 255.
"""

import tesserocr
from PIL import Image, ImageChops, ImageOps

DRAWN = 30  # the least ink that counts as drawn, greyed words included
CLEAR = 150  # the least ink of what isn't greyed

# A line gets several tries, in one of two languages and enlarged so many times: the reader is made
# for larger letters. French knows the accents of all languages that are used here.
TRIES = (("fra", 4), ("eng", 4), ("fra", 3), ("eng", 2), ("fra", 5), ("eng", 5), ("fra", 6))

_readers = {}
_read = {}


def ink_by_columns(picture, row):
    """The ink of a picture in which each column has the background that it has in a row."""
    return _ink(picture, picture.crop((0, row, picture.width, row + 1)))


def ink_by_rows(picture, column):
    """The ink of a picture in which each row has the background that it has in a column."""
    return _ink(picture, picture.crop((column, 0, column + 1, picture.height)))


def ink_on(picture, colour):
    """The ink of a picture on a background of one colour."""
    return _ink(picture, Image.new("RGB", (1, 1), colour))


def _ink(picture, background):
    return strongest(ImageChops.difference(picture, background.resize(picture.size)))


def strongest(picture):
    """The strongest of the three colours of each pixel."""
    red, green, blue = picture.split()
    return ImageChops.lighter(ImageChops.lighter(red, green), blue)


def main_colour(picture):
    """The colour that most pixels have."""
    return max(picture.getcolors(picture.width * picture.height))[1]


def rows(ink, gap):
    """Top and bottom of what stands one below the other, at least gap blank rows apart."""
    data = ink.tobytes()
    drawn = [max(data[at:at + ink.width]) >= DRAWN for at in range(0, len(data), ink.width)]
    return runs(drawn, gap)


def columns(ink, gap):
    """Left and right of what stands side by side, at least gap blank columns apart."""
    return rows(ink.transpose(Image.Transpose.TRANSPOSE), gap)


def runs(held, gap=1):
    """First and end of each run of true values; shorter gaps than gap don't end a run."""
    found = []
    for at, holds in enumerate(held):
        if not holds:
            continue
        if found and at - found[-1][1] < gap:
            found[-1] = found[-1][0], at + 1
        else:
            found.append((at, at + 1))
    return found


def is_clear(ink):
    return ink.getextrema()[1] >= CLEAR


def readings(ink, alphabet=""):
    """The line of words that ink forms, as it is read in each try.

    Only the characters of alphabet are read, if it is given.
    """
    for language, times in TRIES:
        key = ink.tobytes(), ink.size, alphabet, language, times
        if key not in _read:
            _read[key] = _recognise(ink, alphabet, language, times)
        yield _read[key]


def _recognise(ink, alphabet, language, times):
    area = ink.point(lambda value: 255 * (value >= DRAWN)).getbbox()
    if area is None:
        return ""
    most = ink.getextrema()[1]
    words = ImageOps.invert(ink.crop(area).point(lambda value: value * 255 // most))
    words = ImageOps.expand(words, 6, 255)
    reader = _reader(alphabet, language)
    reader.SetImage(words.resize((words.width * times, words.height * times),
                                 Image.Resampling.LANCZOS))
    return reader.GetUTF8Text().strip()


def _reader(alphabet, language):
    if (alphabet, language) not in _readers:
        reader = tesserocr.PyTessBaseAPI(lang=language, psm=tesserocr.PSM.SINGLE_LINE)
        reader.SetVariable("tessedit_char_whitelist", alphabet)
        _readers[alphabet, language] = reader
    return _readers[alphabet, language]
