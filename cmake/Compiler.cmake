# One place for the language level, the warnings and the flavours.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported()

option(TARVOLYNE_SANITIZE "AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(TARVOLYNE_FUZZ "With sanitizers under clang: logic that libFuzzer can drive, and the fuzz targets" ON)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  # Relative paths in the cache's keys, so that a fresh clone elsewhere finds what was compiled before.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE_PROGRAM})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
add_compile_options(-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # ccache needs a precompiled header whose bytes do not carry its time of birth.
  add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
else()
  add_compile_options(-fpch-preprocess)
endif()

# What logic is compiled with besides: in a clang build with sanitizers, the counters by which the fuzzer finds its way.
set(TARVOLYNE_LOGIC_OPTIONS "")
if(TARVOLYNE_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND TARVOLYNE_FUZZ)
  set(TARVOLYNE_LOGIC_OPTIONS -fsanitize-coverage=inline-8bit-counters,pc-table)
endif()

if(TARVOLYNE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer
                      -D_GLIBCXX_ASSERTIONS)
  # lld links a test program in a tenth of the time.
  add_link_options(-fsanitize=address,undefined -fuse-ld=lld)
else()
  add_link_options(-Wl,-O1,--as-needed,-z,now,-z,relro)
  # What people install is hardened as the rest of their system: a fault ends the program before it can be used. The
  # checks of the C library want optimised code.
  set(hardening -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -D_GLIBCXX_ASSERTIONS)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|amd64)$")
    list(APPEND hardening -fstack-clash-protection -fcf-protection)
  endif()
  add_compile_options("$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:${hardening}>")
endif()
