# Builds the Debian package afresh into PACKAGE_DIR, so that the package tests see this build's
# package and no other. Invoked by CTest with -DCPACK=<cpack> -DCONFIG=<CPackConfig.cmake>
# -DPACKAGE_DIR=<folder>.
file(REMOVE_RECURSE "${PACKAGE_DIR}")
execute_process(COMMAND "${CPACK}" -G DEB --config "${CONFIG}" -B "${PACKAGE_DIR}" RESULT_VARIABLE status
                OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "cpack: exit ${status}\n${out}\n${err}")
endif()
