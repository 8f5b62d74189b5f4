# shellcheck shell=bash disable=SC2154 # variables of scripts/try-windows
# The main steps for scripts/try-windows. Each scene starts and ends in the main window.

install_by_hand() {
    wine "$installer" &
    front 'Installer Language'
    picture installer-language
    [ "$WINE_LOCALE" = zh_CN ] || xdotool key Down # 中文 is the second one there
    xdotool key Return
    front 'Tarvex图书馆管理系统 安装'
    picture installer-welcome
    press 'Tarvex图书馆管理系统 安装' alt+n
    picture installer-folder
    press 'Tarvex图书馆管理系统 安装' alt+i
    expect "the shortcut is made" find_shortcut
    sleep 2
    picture installer-finished
    press 'Tarvex图书馆管理系统 安装' alt+r alt+f # does not start the program
    wineserver -w
}

find_shortcut() { find "$WINEPREFIX/drive_c/users/$USER" -name 'Tarvex*.lnk' | grep -q .; }

# Without the setting that the installer wrote, the program shows the connection dialog, saves what is chosen, and ends.
first_start() {
    local setting=$data/Tarvex集成系统.ini
    mv "$setting" "$setting.kept"
    start
    front 请设置要连接的数据库信息
    picture connection
    press 请设置要连接的数据库信息 alt+Down End Return
    typed library
    xdotool key alt+c
    sleep 2
    picture connection-tested
    press 系统提示 Return
    press 请设置要连接的数据库信息 alt+d Return # the key has two owners
    front 系统操作提示
    picture connection-saved
    press 系统操作提示 Return
    wineserver -w
    expect "the setting names the data source" grep -q DSN=TarvexLibrary "$setting"
    rm "$setting.kept"
}

open_sample() {
    press Tarvex图书馆管理系统 alt+1
    press 请选择机读目录文件 alt+o
    choose 打开 sample.iso
    press 请选择机读目录文件 alt+s
    front 套录库数据导入
    sleep 2
}

read_and_edit() {
    local before
    before=$(sql "select count(*) from taoluTable")
    open_sample
    press 套录库数据导入 alt+a
    sleep 3
    picture workspace
    press 套录库数据导入 ctrl+Tab
    xdotool key --delay 40 --repeat 19 Down # to 200 $a
    xdotool key Return
    sleep 1
    xdotool key ctrl+a
    typed Dream # keys for Chinese characters get lost
    picture edited
    xdotool key Return
    press 套录库数据导入 alt+n
    front 'Tarvex图书馆管理系统$'
    picture edited-question
    press 'Tarvex图书馆管理系统$' y
    press 套录库数据导入 alt+k
    front MARC
    sleep 1
    picture card
    press MARC Escape
    press 套录库数据导入 alt+d
    sleep 6
    picture proof-of-all
    press 套录库数据导入 alt+s
    front 套录库数据导入进度
    expect "all records are imported" counts taoluTable $((before + 376))
    picture import
    expect "one of them with the changed title" counts "taoluTable where bookname='Dream'" 1
    press 套录库数据导入进度 alt+q
    press 套录库数据导入 alt+q
    press 操作提示 y
    press 请选择机读目录文件 Escape
}

# In the query dialog: records whose ISBN contains 7-02.
query_isbn() {
    front 请输入查询条件
    xdotool key Tab Home Down Down Return Home Down Down Return
    sleep 0.5
    typed 7-02
    xdotool key Tab
    sleep 0.5
    picture "$1"
    press 请输入查询条件 alt+o
    sleep 2
}

catalogue_list() {
    local rows place
    rows=$(sql "select count(*) from zsk where isbn like '%7-02%'")
    press Tarvex图书馆管理系统 alt+3
    query_isbn query
    picture catalogue
    press Tarvex图书馆管理系统 alt+d
    choose 导出书库数据 export.iso
    expect "$rows rows are exported" has_records "$samples/export.iso" "$rows"
    picture exported
    press 提示 Return
    press Tarvex图书馆管理系统 alt+p
    front 打印图书检索一览表
    sleep 1
    picture preview
    # Without a printer the button for printing writes a PDF.
    for place in 824 806; do # with the typeface of a Chinese system, or of another
        click_at $place 21
        xdotool search --onlyvisible --name '^导出到' >/dev/null && break
    done
    choose 导出到 list.pdf
    expect "the PDF has the rows" pdf_has 人民文学出版社 "$rows"
    press Tarvex图书馆管理系统 alt+x
}

pdf_has() { [ "$(pdftotext "$samples/list.pdf" - 2>/dev/null | grep -c "$1")" = "$2" ]; }

store_list() {
    press Tarvex图书馆管理系统 alt+2
    query_isbn store-query
    picture store
    press Tarvex图书馆管理系统 alt+q
}

# The paths are typed with "/" here and chosen in a dialog, which gives "\", in merge_files().
split_file() {
    press Tarvex图书馆管理系统 F10 Right Right Right Return
    front 拆分机读目录文件
    typed ./sample.iso
    xdotool key Return Tab
    typed ./part.iso
    xdotool key Return Tab
    typed 100
    press 拆分机读目录文件 alt+d
    expect "the last of four parts has 76 records" has_records "$samples/part703.iso" 76
    sleep 1
    picture split
    xdotool key alt+q
    press 操作提示 n
    press 拆分机读目录文件 alt+q
    press 操作提示 y
}

merge_files() {
    local part
    press Tarvex图书馆管理系统 F10 Right Right Right Down Return
    for part in part700.iso part703.iso; do
        press 合并机读目录文件 alt+a
        choose 选择文件对话框 "$part"
    done
    press 合并机读目录文件 alt+o
    choose 选择文件对话框 all.iso
    press 合并机读目录文件 alt+d alt+d Return # the key has two owners
    expect "the merged file has 176 records" has_records "$samples/all.iso" 176
    sleep 1
    picture merged
    xdotool key alt+q
    press 操作提示 n
    press 合并机读目录文件 alt+q
    press 操作提示 y
}
