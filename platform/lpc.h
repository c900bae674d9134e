/// The LPC bus: one daemon calls a method of another by name, with a text, and may get a text back.
///
/// Texts are any bytes but NUL. A call to a service that nobody offers fails at once; a call to a silent one fails in
/// bounded time. Every failure sets errno.
#ifndef PLATFORM_LPC_H
#define PLATFORM_LPC_H

#ifdef __cplusplus
extern "C" {
#endif

/// Calls and waits until the service has completed the request. From any thread. Returns 0 on success.
int lpc_proxy_call(const char* service, const char* method, const char* text);

typedef struct lpc_completion lpc_completion;

/// Sends a call whose reply is waited for later. On success returns 0 and puts a completion into `*completion`, which
/// belongs to the calling thread until lpc_completion_destroy(). On failure `*completion` is NULL.
int lpc_proxy_call_with_reply(const char* service, const char* method, const char* text, lpc_completion** completion);

/// Waits for the reply at most `limit` milliseconds. Returns 0 when it is there.
int lpc_completion_wait(lpc_completion* completion, int limit);

/// The reply's text, owned by the completion; NULL when there is none.
const char* lpc_completion_data(lpc_completion* completion);

/// Releases the completion; a reply still to come is dropped. NULL is allowed.
void lpc_completion_destroy(lpc_completion* completion);

typedef struct lpc_service lpc_service;
typedef struct lpc_request lpc_request;

/// Called for each request with the service's `user_data`. The handler completes the request exactly once, now or
/// later, on the thread that serves it.
typedef void (*lpc_handler)(lpc_request* request, void* user_data);

/// Offers one method under a service name; `flags` is 0. Returns NULL on failure, in bounded time, with errno set:
/// EEXIST while another process offers the name, and only then. The console asks again every second, after EEXIST
/// without a word, so a name is free as soon as its holder has ended, however it ended.
/// The service belongs to the calling thread and lives until the process ends or one of the next two calls fails: a
/// failure withdraws it, and the name can be offered anew.
lpc_service* lpc_service_create(const char* service, int flags, const char* method, lpc_handler handler,
                                void* user_data);

/// Descriptor to wait on for input, the same one until the service is withdrawn; negative with errno set on failure.
int lpc_service_fileno(lpc_service* service);

/// Runs the handler for all that has arrived. Returns 0 on success, non-zero with errno set when the bus is gone.
int lpc_service_on_connect(lpc_service* service);

/// The request's text, owned by the request.
const char* lpc_request_params(lpc_request* request);

/// Answers the caller with `reply` (NULL: an empty one) and releases the request.
void lpc_request_completed(lpc_request* request, const char* reply);

#ifdef __cplusplus
}
#endif
#endif
