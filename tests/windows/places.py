"""Where the tests of the packed Windows program find what they need, and leave their pictures."""

import pathlib
import tempfile
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
PACKAGES = ROOT / "build" / "packages"
PICTURES = ROOT / "build" / "windows-pictures"

# Of the Linux release build: the program folder, with the simulated board, and the tools.
LINUX_FOLDER = ROOT / "build" / "release" / "Sorvane"
LINUX_TOOLS = {
    "SorvaneIndex": LINUX_FOLDER.parent / "tools" / "index_compiler" / "SorvaneIndex",
    "SorvaneLanguages": LINUX_FOLDER.parent / "tools" / "language_check" / "SorvaneLanguages"}

SIBLING_STAND_IN = ROOT / "build" / "windows" / "tests" / "windows" / "sorvane_sibling_stand_in.exe"


def package(ending):
    """The one package whose name ends so, such as "-windows.zip". Raises RuntimeError if there is
    none, or more than one."""
    found = sorted(PACKAGES.glob(f"Sorvane-*{ending}"))
    if len(found) != 1:
        raise RuntimeError(f"{len(found)} packages {ending} in {PACKAGES}")
    return found[0]


def unpack(folder):
    """Unpacks the zip into a new folder below folder, and returns where the program lies in it."""
    folder = pathlib.Path(tempfile.mkdtemp(dir=folder))
    with zipfile.ZipFile(package("-windows.zip")) as archive:
        archive.extractall(folder)
    found = list(folder.rglob("Sorvane.exe"))
    if len(found) != 1:
        raise RuntimeError(f"{len(found)} programs in the zip")
    return found[0].parent
