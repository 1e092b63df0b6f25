# How every target of this project is made: warnings are errors, and a room's logic never links Qt.

add_library(ecg_options INTERFACE)
target_compile_options(ecg_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
  -Werror
  # gcc 12 warns of overlapping copies inside its own std::string.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  # Numbers that are compared to the bit must not depend on what the processor can fuse.
  -ffp-contract=off)
target_include_directories(ecg_options INTERFACE ${PROJECT_SOURCE_DIR}/src)

if(ECG_SANITIZE)
  target_compile_options(ecg_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer $<$<CONFIG:Debug>:-O1>)
  target_link_options(ecg_options INTERFACE -fsanitize=address,undefined)
endif()
if(ECG_FUZZ)
  target_compile_options(ecg_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# ecg_room(NAME SOURCES... USES targets...): the logic of a room, without Qt.
function(ecg_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
  add_library(ecg_${name} STATIC ${ROOM_SOURCES})
  target_link_libraries(ecg_${name} PUBLIC ecg_options ${ROOM_USES})
endfunction()

# ecg_room_windows(NAME SOURCES... USES targets...): the Qt widgets of a room.
function(ecg_room_windows name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
  add_library(ecg_${name}_windows STATIC ${ROOM_SOURCES})
  target_link_libraries(ecg_${name}_windows PUBLIC ecg_options ${ROOM_USES})
endfunction()
