# Corvane Desker: the two commands a newcomer needs are `make run` and `make test`.

BUILD_TYPE ?= Release
JOBS ?= $(shell nproc)
SANITIZE ?= 0

ifeq ($(SANITIZE),1)
BUILD_DIR ?= build-asan
CMAKE_FLAGS += -DDESKER_SANITIZE=ON
export ASAN_OPTIONS ?= detect_leaks=1:abort_on_error=1:strict_string_checks=1
export UBSAN_OPTIONS ?= print_stacktrace=1:halt_on_error=1
else
BUILD_DIR ?= build
endif

# Lets worktrees and clean clones share compiled objects.
export CCACHE_BASEDIR := $(CURDIR)

VST3_BUNDLE := $(BUILD_DIR)/Desker_artefacts/$(BUILD_TYPE)/VST3/Corvane Desker.vst3
LV2_BUNDLE := $(BUILD_DIR)/Desker_artefacts/$(BUILD_TYPE)/LV2/Corvane Desker.lv2
STANDALONE := $(BUILD_DIR)/Desker_artefacts/$(BUILD_TYPE)/Standalone/Corvane Desker

.PHONY: all deps configure build test bench run install clean

all: build

deps:
	@bash scripts/install-deps.sh

$(BUILD_DIR)/CMakeCache.txt:
	cmake -S . -B $(BUILD_DIR) -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) $(CMAKE_FLAGS)

configure: deps $(BUILD_DIR)/CMakeCache.txt

build: configure
	cmake --build $(BUILD_DIR) -j $(JOBS)

test: build
	cd $(BUILD_DIR) && ctest --output-on-failure -j $(JOBS)

bench: configure
	cmake --build $(BUILD_DIR) -j $(JOBS) --target desker_bench
	$(if $(DISPLAY),,xvfb-run -a) $(BUILD_DIR)/bench/desker_bench

install: build
	mkdir -p $(HOME)/.vst3 $(HOME)/.lv2
	rm -rf "$(HOME)/.vst3/Corvane Desker.vst3" "$(HOME)/.lv2/Corvane Desker.lv2"
	cp -r "$(VST3_BUNDLE)" "$(HOME)/.vst3/"
	cp -r "$(LV2_BUNDLE)" "$(HOME)/.lv2/"
	@echo "Installed $(HOME)/.vst3/Corvane Desker.vst3 and $(HOME)/.lv2/Corvane Desker.lv2"

run: install
	"$(STANDALONE)"

clean:
	rm -rf build build-asan
