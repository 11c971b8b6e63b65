# How this project's targets are compiled, and how its tests compare outputs.

# The sanitizers and the checks of the library's debug mode change how containers are laid out, so
# everything that is linked together has to be compiled with them.
if(TRRULE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_compile_definitions(_GLIBCXX_DEBUG)
  add_link_options(-fsanitize=address,undefined)
endif()

# Each option where the compiler has it; docs/assurance.md tells what they do.
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
  # A distribution's compiler may have set a level of its own; without optimisation there is none.
  add_compile_options("$<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
  # A static library has to fit into programs that are loaded anywhere.
  add_compile_options("$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,STATIC_LIBRARY>:-fPIE>")
  add_link_options(-Wl,-z,relro,-z,now)
endif()

# Warnings are this project's own business: a program that takes it in as a part sees none of them.
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

# The symbols are hidden but for the classes, which say so themselves.
function(trrule_configure_library Target)
  trrule_configure_program(${Target})
  target_compile_features(${Target} PUBLIC cxx_std_17)
  target_include_directories(
    ${Target} PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>"
                     "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/trrule>")
  set_target_properties(${Target} PROPERTIES CXX_VISIBILITY_PRESET hidden
                                             VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# A test that runs a program without arguments and compares both of its streams, byte for byte, and
# its status: standard output with the file, standard error with nothing, the status with 0.
function(trrule_add_output_test Name Target ExpectedFile)
  add_test(NAME ${Name}
           COMMAND ${CMAKE_COMMAND} "-DPROGRAM=$<TARGET_FILE:${Target}>"
                   "-DEXPECTED=${ExpectedFile}" "-DNAME=${Name}"
                   "-DWORK_DIR=${CMAKE_CURRENT_BINARY_DIR}" -P
                   "${PROJECT_SOURCE_DIR}/cmake/CompareOutput.cmake")
  set_tests_properties(${Name} PROPERTIES LABELS output TIMEOUT 60)
endfunction()
