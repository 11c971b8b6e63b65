# cmake -DPROGRAM=... -DEXPECTED=... -DNAME=... -DWORK_DIR=... -P CompareOutput.cmake
#
# Runs PROGRAM and fails unless it ends with status 0, leaves standard error empty and writes to
# standard output exactly the bytes of the file EXPECTED. NAME distinguishes the files in WORK_DIR.

set(OutFile "${WORK_DIR}/${NAME}.out")
set(ErrFile "${WORK_DIR}/${NAME}.err")

execute_process(
  COMMAND "${PROGRAM}"
  OUTPUT_FILE "${OutFile}"
  ERROR_FILE "${ErrFile}"
  RESULT_VARIABLE Status)

if(NOT Status STREQUAL "0")
  message(SEND_ERROR "The program ended with status ${Status}, expected 0.")
endif()

file(READ "${ErrFile}" ErrText HEX)
if(NOT ErrText STREQUAL "")
  file(READ "${ErrFile}" ErrText)
  message(SEND_ERROR "Standard error should be empty, but is:\n${ErrText}")
endif()

execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${EXPECTED}" "${OutFile}"
                RESULT_VARIABLE Differs ERROR_QUIET)
if(NOT Differs STREQUAL "0")
  execute_process(COMMAND diff -u "${EXPECTED}" "${OutFile}")
  message(SEND_ERROR "Standard output differs from ${EXPECTED}.")
endif()
