#!/usr/bin/env bash
# Runs the Linux rakeyard-cli and the Windows one (under Wine) on two copies of the sample
# installation: both catalogues, consist new and show (a name in Czech and Japanese, printed on
# the console), consist copy and unicode convert. Their stdout and every file under the two
# installations must be the same bytes. Usage: same_bytes_as_linux.sh LINUX_CLI WINDOWS_CLI SAMPLES
set -euo pipefail
linux_cli=$1 windows_cli=$2 samples=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# Wine hands the arguments over in the locale's encoding.
export LC_ALL=C.UTF-8

run_linux() { "$linux_cli" --home "$work/linux/home" --msts "$work/linux/msts" --yes "$@"; }
run_windows() {
    wine "$windows_cli" --home "Z:$work/windows/home" --msts "Z:$work/windows/msts" --yes "$@"
}

for side in linux windows; do
    mkdir -p "$work/$side"
    cp -r "$samples" "$work/$side/msts"
    {
        run_$side catalogue engines
        run_$side catalogue wagons
        run_$side consist new "Vlak č 日本" RY_Class37 RY_Coal16t eng:RY_Class20
        run_$side consist show "VLAK č 日本"
        run_$side consist copy RY_Coal_Up "RY Coal copy"
    } > "$work/$side.out" 2> "$work/$side.err"
    # The files converted, each a line, with the paths of the platform below its own folder.
    run_$side unicode convert 2>> "$work/$side.err" | tr '\\' / | sed "s|^.*$work/$side/msts||" \
        > "$work/$side.converted"
done

status=0
cmp "$work/linux.out" "$work/windows.out" || status=1
cmp "$work/linux.converted" "$work/windows.converted" || status=1
[ -s "$work/linux.converted" ] || { echo "nothing converted"; status=1; }
diff -r "$work/linux/msts" "$work/windows/msts" || status=1
[ -f "$work/linux/msts/TRAINS/CONSISTS/Vlak č 日本.con" ] || { echo "no consist made"; status=1; }
echo "stdout: $(wc -c < "$work/linux.out") bytes, files: $(find "$work/linux/msts" -type f | wc -l)"
[ $status -eq 0 ] || cat "$work/linux.err" "$work/windows.err"
exit $status
