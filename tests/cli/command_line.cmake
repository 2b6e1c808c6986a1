# The command lines of quillon-cli and quillon: help and version, the examples the help gives
# (each must run on a demo database), mistakes (status 2 and a message naming them), and a report
# run through the settings store instead of --db.
# Invoked by CTest with -DCLI=<quillon-cli> -DGUI=<quillon, or empty> -DVERSION=<project version>
# -DWORK=<scratch folder>.
cmake_policy(VERSION 3.25)
file(REMOVE_RECURSE "${WORK}")
file(MAKE_DIRECTORY "${WORK}")

# Runs a command line in WORK; fails unless it ends with `status` and its stdout and stderr
# together hold every text given after EXPECT.
function(expect_run status)
  cmake_parse_arguments(R "" "" "COMMAND;EXPECT" ${ARGN})
  execute_process(COMMAND ${R_COMMAND} WORKING_DIRECTORY "${WORK}" RESULT_VARIABLE got OUTPUT_VARIABLE out
                  ERROR_VARIABLE err)
  if(NOT got STREQUAL status)
    message(FATAL_ERROR "${R_COMMAND}: exit ${got}, not ${status}\n${out}\n${err}")
  endif()
  foreach(text IN LISTS R_EXPECT)
    string(FIND "${out}${err}" "${text}" at)
    if(at EQUAL -1)
      message(FATAL_ERROR "${R_COMMAND}: no '${text}' in\n${out}\n${err}")
    endif()
  endforeach()
  set(last_out "${out}" PARENT_SCOPE)
endfunction()

set(reports parking invoice preinvoice recon deptrate summary)

expect_run(0 COMMAND "${CLI}" --help EXPECT ${reports} "quillon-cli run REPORT --help")
foreach(report IN LISTS reports)
  string(FIND "${last_out}" "e.g. quillon-cli run ${report} " at)
  if(at EQUAL -1)
    message(FATAL_ERROR "--help gives no example of ${report}:\n${last_out}")
  endif()
endforeach()
expect_run(0 COMMAND "${CLI}" --version EXPECT "quillon-cli ${VERSION}")
expect_run(0 COMMAND "${CLI}" demo-db --help EXPECT "quillon-cli demo-db FILE")

# Every report's example, as its help prints it, on a demo database named as the help names it.
expect_run(0 COMMAND "${CLI}" demo-db demo.db --invoices 1500)
foreach(report IN LISTS reports)
  expect_run(0 COMMAND "${CLI}" run ${report} --help
             EXPECT "usage: quillon-cli run ${report} " "criteria:" "--config DIR" "exit status")
  string(REGEX MATCH "\n  (quillon-cli run ${report} [^\n]*)" _ "${last_out}")
  if(NOT CMAKE_MATCH_1)
    message(FATAL_ERROR "run ${report} --help shows no example:\n${last_out}")
  endif()
  separate_arguments(words UNIX_COMMAND "${CMAKE_MATCH_1}")
  list(POP_FRONT words)
  list(FIND words --xlsx at)
  math(EXPR at "${at} + 1")
  list(GET words ${at} workbook)
  expect_run(0 COMMAND "${CLI}" ${words})
  file(READ "${WORK}/${workbook}" head LIMIT 4 HEX)
  if(NOT head STREQUAL "504b0304")
    message(FATAL_ERROR "${report}'s example wrote no workbook ${workbook}")
  endif()
endforeach()

# Mistakes: status 2, and the message says what was wrong and where to look.
set(recon run recon --db demo.db --form 票据核对表 --dept 010101 --year 2025 --from 01 --to 12)
expect_run(2 COMMAND "${CLI}" ${recon} --bogus 1
           EXPECT "unknown option --bogus" "Try 'quillon-cli run recon --help'")
expect_run(2 COMMAND "${CLI}" run recon --db demo.db --dept 010101 EXPECT "missing --form")
expect_run(2 COMMAND "${CLI}" run summary --db demo.db --all --from 2025-01-01 --to 2025-13-01
           EXPECT "--to must be YYYY-MM-DD")
expect_run(2 COMMAND "${CLI}" run ledger EXPECT "unknown report 'ledger'")
expect_run(2 COMMAND "${CLI}" run EXPECT "name a report (reports: parking, invoice")
expect_run(2 COMMAND "${CLI}" frobnicate EXPECT "unknown command 'frobnicate'" "Try 'quillon-cli --help'")
expect_run(2 COMMAND "${CLI}" --bogus EXPECT "unknown option '--bogus'")
expect_run(2 COMMAND "${CLI}" ${recon} --config cfg EXPECT "--db or --config, not both")
expect_run(2 COMMAND "${CLI}" demo-db EXPECT "demo-db needs exactly one FILE")
expect_run(2 COMMAND "${CLI}" demo-db moved.db --end-month 2026-13 EXPECT "--end-month wants YYYY-MM")

# Books moved to end in a month: the reconciliation of that month has its rows.
expect_run(0 COMMAND "${CLI}" demo-db moved.db --invoices 1500 --end-month 2026-11 EXPECT "books ending 2026-11")
expect_run(0 COMMAND "${CLI}" run recon --db moved.db --form 票据核对表 --dept 010101 --year 2026 --from 11 --to 11
           --tsv moved.tsv)
file(READ "${WORK}/moved.tsv" moved)
string(FIND "${moved}" "\t202611\t" at)
if(at EQUAL -1)
  message(FATAL_ERROR "no row of 2026-11 in the reconciliation of the moved books:\n${moved}")
endif()

# Without --db a report connects as the program does, from the settings store.
file(WRITE "${WORK}/cfg/Quillon/Quillon.ini" "[DBConfig]\nProvider=SQLite\nSvr=${WORK}/demo.db\n")
list(REMOVE_ITEM recon --db demo.db)
expect_run(0 COMMAND "${CLI}" ${recon} --config cfg --tsv settings.tsv)
file(STRINGS "${WORK}/settings.tsv" lines)
list(LENGTH lines count)
if(count LESS 4)
  message(FATAL_ERROR "the run through the settings store printed ${count} lines of grid")
endif()
file(WRITE "${WORK}/gone/Quillon/Quillon.ini" "[DBConfig]\nProvider=SQLite\nSvr=${WORK}/missing.db\n")
expect_run(1 COMMAND "${CLI}" ${recon} --config gone EXPECT "数据库连接失败!" "gone/Quillon/Quillon.ini")

if(GUI)
  # Help and version need no display; a mistake is told before any window opens.
  set(no_display "${CMAKE_COMMAND}" -E env --unset=DISPLAY --unset=WAYLAND_DISPLAY --unset=QT_QPA_PLATFORM)
  expect_run(0 COMMAND ${no_display} "${GUI}" --help EXPECT "usage: quillon " "--demo" "quillon-cli --help"
             "Menu entries: 停车费明细表, 增值税开票明细表, 增值税预开明细表, 开票票据核对表, 增值税开票统计汇总表, 预开票汇总表, 关于软件")
  expect_run(0 COMMAND ${no_display} "${GUI}" --version EXPECT "quillon ${VERSION}")
  expect_run(2 COMMAND "${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen "${GUI}" --bogus
             EXPECT "unknown option --bogus" "Try 'quillon --help'")
  expect_run(2 COMMAND "${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen "${GUI}" --size
             EXPECT "option --size needs a value")
endif()
