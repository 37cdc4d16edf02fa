# Tests of the window. Included from tests/CMakeLists.txt when it exists.
if(NOT TARGET videomend_shell)
  return()
endif()

foreach(name tst_shell_startup tst_shell_addpage tst_shell_run tst_shell_sample tst_shell_save tst_shell_preview)
  vm_add_test(${name})
  target_link_libraries(${name} PRIVATE videomend_shell)
  target_compile_definitions(${name} PRIVATE
    VM_SHELL_DIR="$<TARGET_FILE_DIR:videomend>"
    VM_VIDEOMEND_PATH="$<TARGET_FILE:videomend>")
  add_dependencies(${name} videomend videomend_data)
endforeach()
set_tests_properties(tst_shell_run tst_shell_sample tst_shell_save PROPERTIES FIXTURES_REQUIRED media)
