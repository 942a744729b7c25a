// The guard primitive on macOS, where platform exceptions are Objective-C's. Compiled without the frameworks' headers: what
// is needed of them is declared here, and platform/guard.h is left out because there the class is a C++ struct.
__attribute__((objc_root_class))
@interface NSObject
@end
__attribute__((objc_exception))
@interface NSException : NSObject
@end

extern "C" NSException* objc_retainAutorelease(NSException* exception);

extern "C" NSException* platform_catchException(void (*body)(void*), void* context) {
  @try {
    body(context);
  } @catch (NSException* exception) {
    // The throw's own reference ends with this block, and the pool that held the exception may have been the body's.
    return objc_retainAutorelease(exception);
  }
  return nullptr;
}
