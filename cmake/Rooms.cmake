# One static library per room. The linker enforces the layers: a room sees only the rooms it names.

add_library(orvenza_options INTERFACE)
if(MSVC)
  # 4062 is an enumerator not handled by a switch without default; elsewhere -Wall includes it.
  target_compile_options(orvenza_options INTERFACE /W4 /WX /we4062 /utf-8 /permissive-)
  # No warnings about standard functions such as std::getenv.
  target_compile_definitions(orvenza_options INTERFACE _CRT_SECURE_NO_WARNINGS)
else()
  target_compile_options(orvenza_options INTERFACE -Wall -Wextra -Wconversion -Wsign-conversion -Wshadow -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 wrongly reports overlaps in std::string (its bug 105651).
    target_compile_options(orvenza_options INTERFACE -Wno-restrict)
  endif()
endif()
if(WIN32)
  # Windows 7 is the oldest supported version.
  target_compile_definitions(orvenza_options INTERFACE WIN32_LEAN_AND_MEAN= NOMINMAX= _WIN32_WINNT=0x0601)
  set(orvenza_system windows)
else()
  set(orvenza_system posix)
endif()
if(ORVENZA_SANITIZE)
  target_compile_options(orvenza_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer)
  target_link_options(orvenza_options INTERFACE -fsanitize=address,undefined)
endif()

if(ORVENZA_FUZZ)
  target_compile_options(orvenza_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# orvenza_room(NAME [FOLDERS FOLDER...] [SYSTEM FOLDER...] [USES ROOM...] [LIBRARIES LIBRARY...]) creates the library
# orvenza_NAME from the sources in the current folder and in each FOLDER below it. The folders after SYSTEM are for
# the target operating system, as are the LIBRARIES.
function(orvenza_room name)
  cmake_parse_arguments(ROOM "" "" "FOLDERS;SYSTEM;USES;LIBRARIES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  foreach(folder ${ROOM_FOLDERS} ${ROOM_SYSTEM})
    file(GLOB folder_sources CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.h)
    list(APPEND sources ${folder_sources})
  endforeach()
  add_library(orvenza_${name} STATIC ${sources})
  target_include_directories(orvenza_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(orvenza_${name} PRIVATE orvenza_options)
  foreach(used ${ROOM_USES})
    target_link_libraries(orvenza_${name} PUBLIC orvenza_${used})
  endforeach()
  target_link_libraries(orvenza_${name} PUBLIC ${ROOM_LIBRARIES})
endfunction()
