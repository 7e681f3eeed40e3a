# shellcheck shell=bash disable=SC2034
# The Debian packages that the project needs; read by scripts/common.sh.

# The recorded speakers at the doors, and the programs that let them speak and change their voices:
# 75 MB to fetch on a system that has none of it.
voice_packages="praat festival festvox-kdlpc16k festvox-czech-dita festvox-czech-machac
    festvox-suopuhe-lj festvox-suopuhe-mv"

# To build anything at all: one configuration serves the game, its tools and its tests.
build_packages="g++ cmake ninja-build pkg-config python3 libsdl2-dev libsdl2-ttf-dev libx11-dev libpulse-dev libpipewire-0.3-dev
    libespeak-ng-dev libbrlapi-dev flite1-dev libpng-dev liblouis-dev libsndfile1-dev libebur128-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    $voice_packages"

# To play what has been built.
play_packages="espeak-ng-data libflite1 fonts-dejavu-core"

# What checks the sources, the menu entry, the pages and the manual; tests fail without them.
checking_packages="clang-format clang-tidy desktop-file-utils appstream man-db groff codespell liblouis-bin liblouis-data"

# Without these some tests are skipped, and say so.
test_packages="brltty libbrlapi0.8 xvfb xdotool pulseaudio pulseaudio-utils pipewire pipewire-pulse
    wireplumber dbus-daemon tmux procps strace e2fsprogs mount python3-fusepy"

# For the edition in a browser: to build it, and to test it.
web_packages="emscripten nodejs ninja-build dpkg-dev"
web_test_packages="chromium firefox-esr xvfb xdotool pulseaudio pulseaudio-utils procps python3 npm"

# Only `./test long` asks for these; scripts/coverage needs them too.
long_packages="clang-14 libclang-rt-14-dev llvm-14 valgrind"

# Only soundsmith/measure-people asks for these.
measuring_packages="pocketsphinx pocketsphinx-en-us python3-numpy python3-scipy"
