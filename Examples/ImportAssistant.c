// An import assistant in C: tells what a file is, reads it, shows what would arrive and what not.

#include <inttypes.h>
#include <stdio.h>

#include <Rellinor/rellinor.h>

static void show(rellinor_text text) {
    fwrite(text.data, 1, text.length, stdout);
}

/// Says what the file is, or why it cannot be read and what to do about that.
static bool introduce(const char* path) {
    rellinor_detection* const found = rellinor_detect(path);
    if (found == NULL) {
        return false; // there is no memory
    }
    const rellinor_failure_reason obstacle = rellinor_detection_obstacle(found);
    const bool is_clear = obstacle == RELLINOR_FAILURE_NONE;
    show(is_clear ? rellinor_layout_description(rellinor_detection_layout(found))
                  : rellinor_failure_reason_description(obstacle));
    putchar(' ');
    show(rellinor_detection_advice(found));
    putchar('\n');
    rellinor_detection_free(found);
    return is_clear;
}

static bool tell(uint64_t done, uint64_t total, void* context) {
    (void)context;
    printf("%" PRIu64 " of %" PRIu64 "\n", done, total);
    return true; // false ends the reading
}

static void show_report(const rellinor_result* imported) {
    for (size_t i = 0; i < rellinor_report_left_out_count(imported); ++i) {
        const rellinor_left_out left = rellinor_report_left_out(imported, i);
        printf("%" PRIu64 " times: ", left.places.count);
        show(rellinor_left_out_reason_description(left.reason));
        putchar('\n');
    }
    for (size_t i = 0; i < rellinor_report_finding_count(imported); ++i) {
        const rellinor_finding finding = rellinor_report_finding(imported, i);
        printf("%" PRIu64 " times: ", finding.places.count);
        show(rellinor_finding_kind_description(finding.kind));
        putchar('\n');
    }
    for (size_t i = 0; i < rellinor_report_unread_count(imported); ++i) {
        const rellinor_unread unread = rellinor_report_unread(imported, i);
        printf("%" PRIu64 " times: not read: ", unread.count);
        show(unread.part);
        putchar('\n');
    }
}

int main(int argc, char* argv[]) {
    const char* const path = argc > 1 ? argv[1] : "export.csv";
    if (!introduce(path)) {
        return 1;
    }
    const rellinor_read_options options = {.size = sizeof options, .on_progress = tell};
    rellinor_result* const imported = rellinor_export_read(path, &options);
    if (imported == NULL) {
        return 1;
    }
    const bool succeeded = rellinor_result_succeeded(imported);
    if (!succeeded) {
        show(rellinor_failure_reason_description(rellinor_report_failure(imported).reason));
        putchar('\n');
    }
    for (size_t i = 0; i < rellinor_result_login_count(imported); ++i) {
        show(rellinor_login_username(imported, i));
        printf(" and %zu details\n", rellinor_login_extra_count(imported, i));
    }
    show_report(imported);
    rellinor_result_free(imported);
    return succeeded ? 0 : 1;
}
