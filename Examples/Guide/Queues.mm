#include <dispatch/dispatch.h>

#include "Examples/Guide/BackgroundImport.hpp"

Queue queueOf(dispatch_queue_t queue) {
    return [queue](std::function<void()> work) {
        ::dispatch_async(queue, ^{
            work();
        });
    };
}

void importInBackground(const Rellinor::URL& url, Rellinor::ImportSource source,
                        const Rellinor::RecordsCompletion& onComplete) {
    importRecords(url, source, queueOf(::dispatch_get_global_queue(QOS_CLASS_USER_INITIATED, 0)),
                  queueOf(::dispatch_get_main_queue()), onComplete);
}
