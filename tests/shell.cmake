# Tests of the window. Included from tests/CMakeLists.txt when it exists.
if(NOT TARGET videomend_shell)
  return()
endif()

foreach(name tst_shell_startup tst_shell_addpage tst_shell_run tst_shell_sample tst_shell_save tst_shell_preview)
  vm_add_test(${name})
  target_link_libraries(${name} PRIVATE videomend_shell)
  videomend_pick_look(${name} ${VIDEOMEND_BRAND} ${VIDEOMEND_MARKET})
  target_compile_definitions(${name} PRIVATE
    VM_SHELL_DIR="$<TARGET_FILE_DIR:videomend>"
    VM_VIDEOMEND_PATH="$<TARGET_FILE:videomend>")
  add_dependencies(${name} videomend videomend_data)
endforeach()
set_tests_properties(tst_shell_run tst_shell_sample tst_shell_save PROPERTIES FIXTURES_REQUIRED media)

# The look, once per brand and market variant: the same test linked with each row.
foreach(pick Halvern:None Quorrel:None Tessalvane:None Halvern:Japan Halvern:Korea Halvern:China)
  string(REPLACE ":" ";" pick ${pick})
  list(GET pick 0 brand)
  list(GET pick 1 market)
  if(market STREQUAL "None")
    set(name tst_shell_look_${brand})
  else()
    set(name tst_shell_look_${market})
  endif()
  string(TOLOWER ${name} name)
  add_executable(${name} tst_shell_look.cpp)
  target_link_libraries(${name} PRIVATE vm_test_support videomend_shell)
  videomend_pick_look(${name} ${brand} ${market})
  target_compile_definitions(${name} PRIVATE VM_SHELL_DIR="$<TARGET_FILE_DIR:videomend>")
  add_dependencies(${name} videomend_data)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 600
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;ASAN_OPTIONS=detect_leaks=0")
endforeach()

# The installed layout: a valid desktop entry, with the program, icon and
# data where it and the program look for them.
find_program(VM_DESKTOP_FILE_VALIDATE desktop-file-validate)
if(VM_DESKTOP_FILE_VALIDATE)
  add_test(NAME tst_shell_install COMMAND sh -c [[
    rm -rf "$1" && "$2" --install "$3" --prefix "$1" >/dev/null &&
    "$4" "$1/share/applications/videomend.desktop" && test -x "$1/bin/videomend" &&
    test -f "$1/share/icons/hicolor/scalable/apps/videomend.svg" && test -d "$1/share/videomend/help/EN" &&
    test -d "$1/share/videomend/VideoTranslation/EN"]]
    -- ${CMAKE_CURRENT_BINARY_DIR}/install-check ${CMAKE_COMMAND} ${CMAKE_BINARY_DIR} ${VM_DESKTOP_FILE_VALIDATE})
else()
  message(STATUS "desktop-file-validate not found: the installed desktop entry goes unchecked")
endif()

# The software update against a loopback server.
vm_add_test(tst_update)
target_link_libraries(tst_update PRIVATE videomend_shell)
videomend_pick_look(tst_update ${VIDEOMEND_BRAND} ${VIDEOMEND_MARKET})
target_compile_definitions(tst_update PRIVATE VM_SHELL_DIR="$<TARGET_FILE_DIR:videomend>")
# The translations: their sources, the fonts that draw them and the compiled files.
vm_add_test(tst_translations)
target_link_libraries(tst_translations PRIVATE videomend_shell)
videomend_pick_look(tst_translations ${VIDEOMEND_BRAND} ${VIDEOMEND_MARKET})
target_compile_definitions(tst_translations PRIVATE VM_SHELL_DIR="$<TARGET_FILE_DIR:videomend>"
  VM_TRANSLATIONS_SRC="${CMAKE_SOURCE_DIR}/resources/translations")
add_dependencies(tst_translations videomend_data)
