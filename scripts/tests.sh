# Runs the tests of a build folder with ctest. Sourced by test.sh.

# What test programs say in lines that begin with such a word, or nothing.
said_by_tests() {
  sed -n "s/^$2: //p" "$1/Testing/Temporary/LastTest.log"
}

# run_tests FOLDER JOBS: the tests of FOLDER, JOBS at a time. What fails is run once more, alone: a test that passes
# then is not steady under load, and named as that. It is a defect of the test or of the program all the same, but it
# does not hide what the change that is tested has done. Leaves in `tests_note` what the summary has to say.
run_tests() {
  local folder=$1 jobs=$2 result=0 left_out unsteady failed
  rm -f "$folder/Testing/Temporary/LastTestsFailed.log"
  ctest --test-dir "$folder" --output-on-failure --no-tests=error -j "$jobs" || result=$?
  # What a test program leaves out as a whole it says in such a line.
  left_out=$(said_by_tests "$folder" SKIPPED)
  unsteady=$(said_by_tests "$folder" UNSTEADY)
  failed=$(cut -d: -f2 "$folder/Testing/Temporary/LastTestsFailed.log" 2>/dev/null)
  if [ $result -ne 0 ] && [ -n "$failed" ]; then
    printf '\n-- Once more, alone, what has failed: %s\n' "$(echo $failed)"
    if ctest --test-dir "$folder" --rerun-failed --output-on-failure --no-tests=error; then
      result=0
      unsteady="$unsteady${unsteady:+ }$(echo $failed)"
    fi
  fi
  tests_note="${left_out:+left out: $left_out}"
  [ -z "$unsteady" ] || tests_note="$tests_note${tests_note:+; }NOT STEADY, failed at first: $(echo $unsteady)"
  return $result
}
