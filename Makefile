# Two commands on a fresh Debian 12 machine:
#   make run    install what is missing, build, start the app
#   make test   install what is missing, build, run every test
.PHONY: deps build run test bench screenshots asan fuzz install uninstall deb clean

JOBS ?= $(shell nproc)
XVFB := xvfb-run -a -s "-screen 0 1920x1080x24"
# Mesa's software rasteriser renders the 3-D views without a GPU.
GUI_ENV := LIBGL_ALWAYS_SOFTWARE=1 QT_QUICK_BACKEND= QT_QPA_PLATFORM=xcb

deps:
	@scripts/install-deps

build: deps
	cmake --preset debug
	cmake --build --preset debug -j $(JOBS)

run: build
	./build/debug/bin/murvane

test: build
	$(GUI_ENV) $(XVFB) ctest --test-dir build/debug --output-on-failure -j 1

asan: deps
	cmake --preset asan
	cmake --build --preset asan -j $(JOBS)
	$(GUI_ENV) $(XVFB) ctest --test-dir build/asan --output-on-failure -j 1

bench: deps
	cmake --preset release
	cmake --build --preset release -j $(JOBS)
	$(GUI_ENV) $(XVFB) scripts/run-benchmarks build/release

# libFuzzer on the item decoder and on opening a store of arbitrary bytes;
# MURVANE_FUZZ_SECONDS sets the time per target (default 120).
fuzz: deps
	cmake --preset fuzz
	cmake --build --preset fuzz --target fuzz_items fuzz_store -j $(JOBS)
	scripts/run-fuzz build/fuzz

screenshots: build
	$(GUI_ENV) $(XVFB) scripts/take-screenshots build/debug

# Installs under PREFIX (default /usr/local); DESTDIR stages it elsewhere.
# Builds as you and installs through sudo when the target is not yours.
PREFIX ?= /usr/local
INSTALL_SUDO = $(shell d="$(DESTDIR)$(PREFIX)"; while [ ! -e "$$d" ]; do d=$$(dirname "$$d"); done; \
	[ -w "$$d" ] || [ "$$(id -u)" -eq 0 ] || echo sudo)

install: deps
	cmake --preset release -DCMAKE_INSTALL_PREFIX=$(PREFIX)
	cmake --build --preset release -j $(JOBS) --target murvane
	$(INSTALL_SUDO) env DESTDIR="$(DESTDIR)" cmake --install build/release
	@sed 's|^|$(DESTDIR)|' build/release/install_manifest.txt > build/release/installed-files.txt

# Removes what the last `make install` placed, DESTDIR included (it keeps
# the list in the build).
uninstall:
	@test -f build/release/installed-files.txt || { echo "nothing installed from this tree"; exit 1; }
	@first=$$(head -n 1 build/release/installed-files.txt); sudo=""; \
	if [ "$$(id -u)" -ne 0 ] && [ ! -w "$$(dirname "$$first")" ]; then sudo=sudo; fi; \
	$$sudo xargs -d '\n' rm -fv < build/release/installed-files.txt && rm build/release/installed-files.txt

# build/murvane_<version>_<arch>.deb
deb: deps
	cmake --preset deb
	cmake --build --preset deb -j $(JOBS) --target murvane
	cd build/deb && cpack -B "$(CURDIR)/build"
	@ls build/*.deb

clean:
	rm -rf build
