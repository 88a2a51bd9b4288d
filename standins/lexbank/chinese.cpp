#include "standins/lexbank/texts.h"

namespace tallyra::standins::lexbank {

constexpr Texts chinese{
    .messages = {{
        {10000002, "字段名与字段值缺失，或两者数目不一致。"},
        {10000003, "未找到该记录。"},
        {10000004, "已存在相同主键的记录。"},
        {10000016, "您无权执行此操作：没有相应权限，或该记录属于其他用户。"},
        {10000024, "该订单不需要此物料。"},
        {10000112, "该日期所在期间已结账。"},
        {10000115, "从未向该供应商收过此物料。"},
        {20000005, "该物料不存在。"},
    }},
    .status_approved = "已审核",
    .name_check = "盘点调整",
};
static_assert(is_complete(chinese));

}  // namespace tallyra::standins::lexbank
