# Compiler settings of the targets, and the comparison of outputs in tests.

# The sanitizers and the checks of the library's debug mode change how containers are laid out, so
# everything that is linked together has to be compiled with them.
if(TRRULE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_compile_definitions(_GLIBCXX_DEBUG)
  add_link_options(-fsanitize=address,undefined)
endif()

# Each option if the compiler has it; docs/assurance.md describes them.
if(TRRULE_HARDEN)
  include(CheckCXXCompilerFlag)
  include(CheckPIESupported)
  check_pie_supported(LANGUAGES CXX)
  foreach(Option IN ITEMS stack-protector-strong stack-clash-protection cf-protection)
    check_cxx_compiler_flag(-f${Option} TRRULE_HAVE_${Option})
    if(TRRULE_HAVE_${Option})
      add_compile_options(-f${Option})
    endif()
  endforeach()
  # The compiler of a distribution may set its own level; without optimisation there is none.
  add_compile_options("$<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
  # A static library must link into position-independent programs.
  add_compile_options("$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,STATIC_LIBRARY>:-fPIE>")
  add_link_options(-Wl,-z,relro,-z,now)
endif()

# Only this project enables warnings, not a program that contains it.
function(trrule_configure_program Target)
  target_compile_features(${Target} PRIVATE cxx_std_17)
  set_target_properties(${Target} PROPERTIES CXX_EXTENSIONS OFF)
  get_target_property(Type ${Target} TYPE)
  if(TRRULE_HARDEN AND Type STREQUAL "EXECUTABLE")
    set_target_properties(${Target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  endif()
  if(PROJECT_IS_TOP_LEVEL)
    target_compile_options(${Target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                             $<$<BOOL:${TRRULE_WERROR}>:-Werror>)
  endif()
endfunction()

# Symbols are hidden, except the classes, which are marked as visible.
function(trrule_configure_library Target)
  trrule_configure_program(${Target})
  target_compile_features(${Target} PUBLIC cxx_std_17)
  target_include_directories(
    ${Target} PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>"
                     "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/trrule>")
  set_target_properties(${Target} PROPERTIES CXX_VISIBILITY_PRESET hidden
                                             VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# A test that runs a program without arguments: its standard output must equal the file, byte for
# byte, its standard error must be empty, and its status 0.
function(trrule_add_output_test Name Target ExpectedFile)
  add_test(NAME ${Name}
           COMMAND ${CMAKE_COMMAND} "-DPROGRAM=$<TARGET_FILE:${Target}>"
                   "-DEXPECTED=${ExpectedFile}" "-DNAME=${Name}"
                   "-DWORK_DIR=${CMAKE_CURRENT_BINARY_DIR}" -P
                   "${PROJECT_SOURCE_DIR}/cmake/CompareOutput.cmake")
  set_tests_properties(${Name} PROPERTIES LABELS output TIMEOUT 60)
endfunction()
