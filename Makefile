# Makes one static program of engine and bench, which needs no file beside it, for test farms:
#
#     make -j EXE=name CXX=clang++
#
# Everything is compiled anew each time. All else is built by CMake: see README.md.

# The program to make.
EXE := tarquelin
# g++ 12, clang++ 14, or newer.
ifeq ($(origin CXX),default)
CXX := g++
endif
# The processor to make it for, as -march takes it: the one at hand; x86-64 runs on every one that
# has POPCNT.
ARCH := native
# What arises on the way. Several may be made at once.
BUILD := build/standalone/$(notdir $(EXE))

program := $(BUILD)/program
generated := $(BUILD)/generated

# The engine without its own entry and with values, the bench, and the entry that has both.
sources := $(filter-out src/front/main.cpp src/eval/parameters/carried_values.cpp, \
    $(wildcard src/*/*.cpp src/*/*/*.cpp)) $(generated)/carried_values.cpp \
    companions/bench/search_bench.cpp companions/shared/engine_start.cpp \
    companions/shared/progress.cpp companions/standalone/main.cpp
objects := $(sources:%.cpp=$(BUILD)/objects/%.o)

# Not every compiler has a linker at hand that can optimise across files.
links = $(shell echo 'int main() {}' | $(CXX) $(1) -x c++ - -o /dev/null 2>/dev/null && echo yes)
ifneq ($(findstring clang,$(shell $(CXX) --version)),)
linker := $(if $(call links,-fuse-ld=lld),-fuse-ld=lld)
lto := -flto=thin
else
lto := -flto=auto
endif
lto := $(if $(call links,$(lto) $(linker)),$(lto))

flags := -std=c++20 -O3 -DNDEBUG -march=$(ARCH) -mpopcnt -fno-pie $(lto) $(CXXFLAGS) \
    -Isrc -I. -I$(generated)

$(EXE): FORCE
	rm -rf $(BUILD)
	mkdir -p $(generated)/platform
	version=$$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt) && \
	    sed "s/@PROJECT_VERSION@/$$version/" src/platform/version.h.in >$(generated)/platform/version.h
	{ echo '#include "eval/parameters/carried_values.h"'; \
	    echo 'static constexpr int32_t Values[] = {'; \
	    sed 's/[[:space:]]*$$/,/' data/values.txt; \
	    echo '};'; \
	    echo 'constinit const std::span<const int32_t> CarriedValues = Values;'; \
	} >$(generated)/carried_values.cpp
	$(MAKE) $(program)
	cp $(program) $@

$(program): $(objects)
	$(CXX) $(flags) $^ -static $(linker) $(LDFLAGS) -o $@

$(BUILD)/objects/%.o: %.cpp
	@mkdir -p $(@D)
	$(CXX) $(flags) -c $< -o $@

FORCE:
.PHONY: FORCE
