/* xlsx_reference.c — the yardstick of the workbook export: plain C on libxlsxwriter writing
 * given cells, formats and merges, with nothing of the program in between.
 *
 *   xlsx_reference plan PLAN OUT.xlsx        the cells of a plan (bench/xlsx_plan.py)
 *   xlsx_reference synthetic ROWS COLS OUT.xlsx
 *
 * Prints the seconds spent writing (reading the plan not counted) and the cells written. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <xlsxwriter.h>

static double Now(void) {
    struct timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return (double)t.tv_sec + (double)t.tv_nsec / 1e9;
}

enum Kind { kText, kNumber, kBlank, kMerge, kWidth, kHeight };

typedef struct {
    enum Kind kind;
    int row, col, row2, col2, format;
    double number;
    char* text;
} Item;

typedef struct {
    int bold, border, wrap, halign, valign;
    double size;
    long fill;
    char font[64], numfmt[64];
} Style;

/* Splits a line at tabs in place; gives the field count. */
static int Fields(char* line, char** out, int max) {
    int n = 0;
    char* p = line;
    while (n < max) {
        out[n++] = p;
        char* tab = strchr(p, '\t');
        if (!tab) break;
        *tab = '\0';
        p = tab + 1;
    }
    char* nl = strchr(out[n - 1], '\n');
    if (nl) *nl = '\0';
    return n;
}

static int WritePlan(const char* planPath, const char* out) {
    FILE* f = fopen(planPath, "r");
    if (!f) {
        perror(planPath);
        return 2;
    }
    size_t cap = 1 << 16, count = 0, styleCount = 0;
    Item* items = malloc(cap * sizeof(Item));
    Style styles[512];
    char* line = NULL;
    size_t len = 0;
    char* fld[12];
    while (getline(&line, &len, f) > 0) {
        int n = Fields(line, fld, 12);
        if (fld[0][0] == 'F' && n >= 10 && styleCount < 512) {
            Style* s = &styles[styleCount++];
            s->bold = atoi(fld[1]);
            s->size = atof(fld[2]);
            snprintf(s->font, sizeof s->font, "%s", fld[3]);
            snprintf(s->numfmt, sizeof s->numfmt, "%s", fld[4]);
            s->halign = atoi(fld[5]);
            s->valign = atoi(fld[6]);
            s->wrap = atoi(fld[7]);
            s->border = atoi(fld[8]);
            s->fill = strtol(fld[9], NULL, 16);
            continue;
        }
        if (count == cap) items = realloc(items, (cap *= 2) * sizeof(Item));
        Item* it = &items[count++];
        memset(it, 0, sizeof *it);
        switch (fld[0][0]) {
        case 'S':
            it->kind = kText;
            break;
        case 'N':
            it->kind = kNumber;
            break;
        case 'B':
            it->kind = kBlank;
            break;
        case 'M':
            it->kind = kMerge;
            break;
        case 'W':
            it->kind = kWidth;
            break;
        default:
            it->kind = kHeight;
            break;
        }
        it->row = atoi(fld[1]);
        if (it->kind == kWidth || it->kind == kHeight) {
            it->number = atof(fld[2]);
            continue;
        }
        it->col = atoi(fld[2]);
        if (it->kind == kMerge) {
            it->row2 = atoi(fld[3]);
            it->col2 = atoi(fld[4]);
            it->format = atoi(fld[5]);
            it->text = strdup(n > 6 ? fld[6] : "");
            continue;
        }
        it->format = atoi(fld[3]);
        if (it->kind == kText) it->text = strdup(n > 4 ? fld[4] : "");
        if (it->kind == kNumber) it->number = atof(fld[4]);
    }
    free(line);
    fclose(f);

    double start = Now();
    lxw_workbook* wb = workbook_new(out);
    lxw_worksheet* ws = workbook_add_worksheet(wb, NULL);
    lxw_format* formats[512];
    for (size_t i = 0; i < styleCount; ++i) {
        Style* s = &styles[i];
        lxw_format* fm = workbook_add_format(wb);
        if (s->bold) format_set_bold(fm);
        if (s->size > 0) format_set_font_size(fm, s->size);
        if (s->font[0]) format_set_font_name(fm, s->font);
        if (s->numfmt[0]) format_set_num_format(fm, s->numfmt);
        if (s->halign) format_set_align(fm, (uint8_t)s->halign);
        if (s->valign) format_set_align(fm, (uint8_t)s->valign);
        if (s->wrap) format_set_text_wrap(fm);
        if (s->border) format_set_border(fm, (uint8_t)s->border);
        if (s->fill >= 0) format_set_bg_color(fm, (lxw_color_t)s->fill);
        formats[i] = fm;
    }
    long cells = 0;
    for (size_t i = 0; i < count; ++i) {
        Item* it = &items[i];
        lxw_format* fm = it->format >= 0 && (size_t)it->format < styleCount ? formats[it->format] : NULL;
        switch (it->kind) {
        case kText:
            worksheet_write_string(ws, it->row, it->col, it->text, fm);
            ++cells;
            break;
        case kNumber:
            worksheet_write_number(ws, it->row, it->col, it->number, fm);
            ++cells;
            break;
        case kBlank:
            worksheet_write_blank(ws, it->row, it->col, fm);
            ++cells;
            break;
        case kMerge:
            worksheet_merge_range(ws, it->row, it->col, it->row2, it->col2, it->text, fm);
            break;
        case kWidth:
            worksheet_set_column(ws, it->row, it->row, it->number, NULL);
            break;
        case kHeight:
            worksheet_set_row(ws, it->row, it->number, NULL);
            break;
        }
    }
    if (workbook_close(wb) != LXW_NO_ERROR) return 1;
    printf("%.4f %ld\n", Now() - start, cells);
    return 0;
}

static int WriteSynthetic(int rows, int cols, const char* out) {
    double start = Now();
    lxw_workbook* wb = workbook_new(out);
    lxw_worksheet* ws = workbook_add_worksheet(wb, NULL);
    lxw_format* money = workbook_add_format(wb);
    format_set_num_format(money, "#,##0.00");
    format_set_border(money, LXW_BORDER_THIN);
    lxw_format* text = workbook_add_format(wb);
    format_set_border(text, LXW_BORDER_THIN);
    char buf[64];
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < cols; ++c) {
            if (c % 2 == 0) {
                snprintf(buf, sizeof buf, "票据%07d-%d", r, c);
                worksheet_write_string(ws, r, c, buf, text);
            } else {
                worksheet_write_number(ws, r, c, r * 0.01 + c, money);
            }
        }
    if (workbook_close(wb) != LXW_NO_ERROR) return 1;
    printf("%.4f %ld\n", Now() - start, (long)rows * cols);
    return 0;
}

int main(int argc, char** argv) {
    if (argc == 4 && strcmp(argv[1], "plan") == 0) return WritePlan(argv[2], argv[3]);
    if (argc == 5 && strcmp(argv[1], "synthetic") == 0)
        return WriteSynthetic(atoi(argv[2]), atoi(argv[3]), argv[4]);
    fprintf(stderr, "usage: xlsx_reference plan PLAN OUT.xlsx | synthetic ROWS COLS OUT.xlsx\n");
    return 2;
}
