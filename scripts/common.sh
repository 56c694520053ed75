# What the commands share. Sourced, with the repository's root as $root.

# What the commands take, from Debian. The program on a desktop:
program_packages=(cmake ninja-build g++ qt6-base-dev qt6-base-dev-tools libcli11-dev fonts-dejavu-core)

# A virtual display, and keys and eyes for it.
desk_packages=(
  xvfb openbox xdotool x11-utils imagemagick dbus at-spi2-core python3 python3-gi
)

# The tests of the release.
test_packages=("${program_packages[@]}" "${desk_packages[@]}" libgtest-dev libgmock-dev pandoc)

# Building with Clang and its sanitizers, as the fuzz targets are.
clang_packages=(clang libclang-rt-14-dev)

# The measures of the speed.
bench_packages=(libmodbus-dev libxcb1-dev)

# The checks of the sources.
check_packages=(clang-format clang-tidy clazy)

# The Debian package.
debian_packages=(
  dpkg-dev desktop-file-utils appstream shellcheck lintian man-db doc-base xdg-utils xterm
)

# The Windows program.
windows_packages=(
  g++-mingw-w64-x86-64-posix dpkg-dev wine wine64 nsis fonts-liberation icoutils locales
  python3-pil python3-xlib python3-tesserocr tesseract-ocr-eng tesseract-ocr-fra
)

# Counting what the tests run.
coverage_packages=(gcovr)

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

# Configures a preset; prints what CMake says only if it fails.
configure() {
  cmake --preset "$1" >"$root/build/$1.configure.log" 2>&1 || {
    cat "$root/build/$1.configure.log"
    return 1
  }
}

# Configures a preset and builds the targets given, or those of the preset.
build() {
  local preset=$1
  shift
  configure "$preset" || return 1
  cmake --build --preset "$preset" ${@:+--target "$@"}
}

# Runs a command and keeps what it prints in a file below build/ too.
keep() {
  local file=$root/build/$1 status=0 copy writer
  shift
  mkdir -p "$(dirname "$file")"
  exec {copy}> >(exec tee "$file")
  writer=$!
  "$@" >&"$copy" || status=$?
  exec {copy}>&-
  wait "$writer"
  return $status
}

passed=0
failed=0
times=()

# Runs one stage and prints how long it took.
stage() {
  local name=$1 start=$SECONDS result=passed
  shift
  echo "== $name"
  if "$@"; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    result=FAILED
  fi
  times+=("$(printf '%4d s  %s: %s' $((SECONDS - start)) "$name" "$result")")
  echo "== $name: $result after $((SECONDS - start)) s"
}

# The same for a stage without which none of the following can pass: they are left out if it fails.
need() {
  local before=$failed
  stage "$@"
  [ "$failed" -eq "$before" ] || finish
}

# Tells the time of each stage, the sum, and how many stages passed. Ends the script; it fails if any
# stage did.
finish() {
  printf '%s\n' "${times[@]}"
  printf '%4d s  in all\n' "$SECONDS"
  echo "$passed passed, $failed failed"
  exit "$((failed > 0))"
}
