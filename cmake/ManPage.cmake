# Renders timetool.1 from docs/timetool.1.scd, with the WHEN grammar taken
# from the text `timetool --help` prints (kWhenGrammar in tools/commands.h),
# so the grammar is written down once. The page is dated EPOCH (seconds since
# 1970; empty: today) and also written compressed as <.1>.gz, as manual pages
# are installed, with no file name or time in the gzip header.
# cmake -DSCDOC=<scdoc> -DGZIP=<gzip> -DEPOCH=<seconds> -DPAGE=<.scd> -DGRAMMAR=<commands.h> -DOUTPUT=<.1>
#       -P ManPage.cmake
file(READ ${GRAMMAR} header)
set(opening "kWhenGrammar = R\"(")
string(FIND "${header}" "${opening}" start)
if(start EQUAL -1)
  message(FATAL_ERROR "${GRAMMAR} holds no kWhenGrammar raw string")
endif()
string(LENGTH "${opening}" opening_length)
math(EXPR start "${start} + ${opening_length}")
string(SUBSTRING "${header}" ${start} -1 grammar)
string(FIND "${grammar}" ")\";" end)
if(end EQUAL -1)
  message(FATAL_ERROR "${GRAMMAR}: kWhenGrammar has no end")
endif()
string(SUBSTRING "${grammar}" 0 ${end} grammar)

file(READ ${PAGE} page)
string(FIND "${page}" "@WHEN_GRAMMAR@" marker)
if(marker EQUAL -1)
  message(FATAL_ERROR "${PAGE} has no @WHEN_GRAMMAR@ line")
endif()
string(REPLACE "@WHEN_GRAMMAR@" "${grammar}" page "${page}")
get_filename_component(folder ${OUTPUT} DIRECTORY)
file(WRITE ${folder}/timetool.1.scd "${page}")
set(scdoc ${SCDOC})
if(NOT "${EPOCH}" STREQUAL "")
  set(scdoc ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=${EPOCH} ${SCDOC})
endif()
execute_process(COMMAND ${scdoc} INPUT_FILE ${folder}/timetool.1.scd OUTPUT_FILE ${OUTPUT}
  RESULT_VARIABLE result ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
  file(REMOVE ${OUTPUT} ${OUTPUT}.gz)
  message(FATAL_ERROR "scdoc failed on ${PAGE} (lines as in ${folder}/timetool.1.scd): ${errors}")
endif()
execute_process(COMMAND ${GZIP} -9 -n -c ${OUTPUT} OUTPUT_FILE ${OUTPUT}.gz
  RESULT_VARIABLE result ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
  file(REMOVE ${OUTPUT} ${OUTPUT}.gz)
  message(FATAL_ERROR "gzip failed on ${OUTPUT}: ${errors}")
endif()
