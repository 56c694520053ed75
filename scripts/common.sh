# What the commands share. Sourced, with the repository's root as $root.

# Everything that building, testing and showing the program takes, from Debian.
packages=(
  cmake ninja-build g++ clang libclang-rt-14-dev clang-format clang-tidy clazy ccache
  qt6-base-dev qt6-base-dev-tools libcli11-dev libgtest-dev libgmock-dev libmodbus-dev libxcb1-dev
  libgl-dev libvulkan-dev
  xvfb openbox xdotool x11-utils imagemagick fonts-dejavu-core
  dbus at-spi2-core python3 python3-gi gir1.2-atspi-2.0 pandoc
)

# The same for the Debian package.
debian_packages=(dpkg-dev desktop-file-utils appstream shellcheck lintian)

# The same for the Windows program.
windows_packages=(
  g++-mingw-w64-x86-64-posix dpkg-dev wine wine64 nsis fonts-liberation icoutils
  python3-pil python3-xlib python3-tesserocr tesseract-ocr-eng tesseract-ocr-fra
)

# The same for counting what the tests run.
coverage_packages=(gcovr)

# Compiling again what was compiled before costs next to nothing.
export CMAKE_CXX_COMPILER_LAUNCHER=ccache

# Runs a command with the rights of the administrator.
become_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# Installs those of the packages given that are missing.
install_packages() {
  local missing=() package
  for package in "$@"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  echo "Installing ${missing[*]}"
  become_root apt-get update -qq
  become_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    "${missing[@]}" >/dev/null
}

# Configures a preset and builds the targets given, or all.
build() {
  local preset=$1
  shift
  cmake --preset "$preset" >"$root/build/$preset.configure.log" 2>&1 || {
    cat "$root/build/$preset.configure.log"
    return 1
  }
  cmake --build --preset "$preset" ${@:+--target "$@"}
}

passed=0
failed=0

# Runs one stage and prints how long it took.
stage() {
  local name=$1 start=$SECONDS
  shift
  echo "== $name"
  if "$@"; then
    passed=$((passed + 1))
    echo "== $name: passed in $((SECONDS - start)) s"
  else
    failed=$((failed + 1))
    echo "== $name: FAILED after $((SECONDS - start)) s"
  fi
}

# Says how many stages passed; fails if any failed.
finish() {
  echo "$passed passed, $failed failed"
  [ "$failed" -eq 0 ]
}
