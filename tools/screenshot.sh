#!/bin/sh
# Screenshots of the GUI on the demo database, under a virtual X server (Xvfb only):
# the main window, its two menus open, and each menu entry's window (the detail reports with a
# year's result on screen).
#   tools/screenshot.sh [BUILD_DIR] [OUT_DIR]      (defaults: build-qt, screenshots)
# The demo database goes to a temporary data folder, so the user's own is left alone.
set -eu

build=${1:-build-qt}
out=${2:-screenshots}
exe=$build/src/quillon
[ -x "$exe" ] || { echo "no $exe: build the quillon target first" >&2; exit 1; }
command -v xvfb-run >/dev/null || { echo "xvfb-run is needed (Debian package xvfb)" >&2; exit 1; }
mkdir -p "$out"

data=$(mktemp -d)
trap 'rm -rf "$data"' EXIT INT TERM
export XDG_DATA_HOME="$data"

shot() {
    name=$1
    shift
    xvfb-run -a -s "-screen 0 1280x800x24" "$exe" --demo --size 1100x720 --screenshot "$out/$name.png" "$@"
    echo "$out/$name.png"
}

shot main
shot menu-reports --menu 统计报表
shot menu-about --menu 关于
# The detail reports with a year's result: items extracted, a split typed, page 2 shown.
detail_run() {
    echo --do List1=$1 --do DTPicker1_0=2024-01-01 --do DTPicker1_1=2024-12-31 --do Command3 \
        --do MSFlexGrid2@1,2 --do txtGRD=60 --do "txtGRD#13" --do txtGRD=40 --do "txtGRD#13" \
        --do Command6 --do Image2_2
}
# shellcheck disable=SC2046
shot parking --open 停车费明细表 $(detail_run 0104)
# shellcheck disable=SC2046
shot invoice-detail --open 增值税开票明细表 $(detail_run 0104)
# shellcheck disable=SC2046
shot preinvoice-detail --open 增值税预开明细表 $(detail_run 010101)
shot reconciliation --open 开票票据核对表
shot deptrate --open 增值税开票统计汇总表
# The summary of every office over 2024 (its closing message shows over it), and a drill-down.
summary_run="--do Check3 --do DTPicker3=2024-01-01 --do DTPicker4=2024-12-31 --do Command1_0"
# shellcheck disable=SC2086
shot preinvoice-summary --open 预开票汇总表 $summary_run
# shellcheck disable=SC2086
shot preinvoice-summary-detail --open 预开票汇总表 $summary_run --do MSFlexGrid1@3,6
shot about --open 关于软件
shot several --open 开票票据核对表 --open 预开票汇总表 --open 关于软件
