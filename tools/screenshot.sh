#!/bin/sh
# Screenshots of the GUI on the demo database, under a virtual X server (Xvfb only):
# the main window, its two menus open, and each menu entry's window, every report with a year's
# result on screen.
#   tools/screenshot.sh [BUILD_DIR] [OUT_DIR] [NAME...]   (defaults: build-qt, screenshots, all)
# NAMEs pick pictures, e.g. the README's:
#   tools/screenshot.sh build docs/pictures main parking invoice-detail preinvoice-detail \
#       reconciliation deptrate preinvoice-summary
# The demo database goes to a temporary data folder, so the user's own is left alone. The runs
# name their year (2025) rather than rely on the demo's range. With pngquant installed the
# pictures are made smaller.
set -eu

build=${1:-build-qt}
out=${2:-screenshots}
[ $# -le 2 ] || { shift 2; wanted=" $* "; }
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
    case ${wanted:-all} in all | *" $name "*) ;; *) return 0 ;; esac
    xvfb-run -a -s "-screen 0 1280x800x24" "$exe" --demo --size 1100x720 --screenshot "$out/$name.png" "$@"
    # A palette of 256 colours keeps a window picture a third of its size, with no visible change.
    if command -v pngquant >/dev/null; then
        pngquant --force --skip-if-larger --strip --quality 80-100 --output "$out/$name.png" "$out/$name.png" || :
    fi
    echo "$out/$name.png"
}

shot main
shot menu-reports --menu 统计报表
shot menu-about --menu 关于
# The detail reports with a year's result: items extracted, a split typed, page 2 shown.
detail_run() {
    echo --do List1=$1 --do DTPicker1_0=2025-01-01 --do DTPicker1_1=2025-12-31 --do Command3 \
        --do MSFlexGrid2@1,2 --do txtGRD=60 --do "txtGRD#13" --do txtGRD=40 --do "txtGRD#13" \
        --do Command6 --do Image2_2
}
# shellcheck disable=SC2046
shot parking --open 停车费明细表 $(detail_run 0104)
# shellcheck disable=SC2046
shot invoice-detail --open 增值税开票明细表 $(detail_run 0104)
# shellcheck disable=SC2046
shot preinvoice-detail --open 增值税预开明细表 $(detail_run 010101)
# The year before the department: its click puts the year into the title.
shot reconciliation --open 开票票据核对表 --do Combo1=2025 --do Combo2=01 --do Combo3=12 --do List1=010101 \
    --do Command3
shot deptrate --open 增值税开票统计汇总表 --do Check1 --do DTPicker1=2025-01-01 --do DTPicker2=2025-12-31 \
    --do Command3
# The summary of every office over 2025 (its closing message shows over it), and a drill-down.
summary_run="--do Check3 --do DTPicker3=2025-01-01 --do DTPicker4=2025-12-31 --do Command1_0"
# shellcheck disable=SC2086
shot preinvoice-summary --open 预开票汇总表 $summary_run
# shellcheck disable=SC2086
shot preinvoice-summary-detail --open 预开票汇总表 $summary_run --do MSFlexGrid1@3,6
shot about --open 关于软件
shot several --open 开票票据核对表 --open 预开票汇总表 --open 关于软件
