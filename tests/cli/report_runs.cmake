# quillon-cli end to end: a small demo database, then every report run as the README shows it,
# each asked for its grid, its workbook and (where the build has it) its printed pages. A run
# must end with status 0, a TSV with rows, an .xlsx (a zip) and a PDF that say what they are.
# Invoked by CTest with -DCLI=<quillon-cli> -DWORK=<scratch folder> -DPDF=<ON|OFF>.
cmake_policy(SET CMP0007 NEW)
file(REMOVE_RECURSE "${WORK}")
file(MAKE_DIRECTORY "${WORK}")

function(run_cli name)
  execute_process(COMMAND "${CLI}" ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${name}: exit ${status}\n${err}")
  endif()
endfunction()

function(expect_file path magic)
  if(NOT EXISTS "${path}")
    message(FATAL_ERROR "${path} was not written")
  endif()
  file(READ "${path}" head LIMIT 4 HEX)
  if(NOT head STREQUAL magic)
    message(FATAL_ERROR "${path} starts with ${head}, not ${magic} (hex)")
  endif()
endfunction()

run_cli(demo-db demo-db "${WORK}/demo.db" --invoices 1500)

set(range "--from|2024-01-01|--to|2024-12-31")
set(reports
    "recon|--form|票据核对表|--dept|010101|--office|1|--year|2024|--from|01|--to|12"
    "deptrate|--all|--start|2024-01-01|--end|2024-12-31"
    "preinvoice|--dept|010101|--split|005=60:40|${range}"
    "invoice|--dept|0104|${range}"
    "parking|--dept|0104|${range}"
    "summary|--all|${range}")
foreach(line IN LISTS reports)
  string(REPLACE "|" ";" words "${line}")
  list(GET words 0 report)
  set(extra)
  if(PDF)
    set(extra --pdf "${WORK}/${report}.pdf")
  endif()
  run_cli(${report} run ${words} --db "${WORK}/demo.db" --tsv "${WORK}/${report}.tsv"
          --xlsx "${WORK}/${report}.xlsx" ${extra})
  file(STRINGS "${WORK}/${report}.tsv" lines)
  list(LENGTH lines count)
  if(count LESS 4)
    message(FATAL_ERROR "${report}: only ${count} lines of grid")
  endif()
  expect_file("${WORK}/${report}.xlsx" "504b0304") # a zip
  if(extra)
    expect_file("${WORK}/${report}.pdf" "25504446") # %PDF
  endif()
endforeach()
