// names.cpp — model layer, demo data: the name pools and the names drawn from them.
#include "model/demo/names.h"

#include <cstddef>

namespace quillon::demo {

namespace {

const char* const kSurnames[] = {"王", "李", "张", "刘", "陈", "杨", "黄", "赵", "吴",   "周",  "徐", "孙",
                                 "马", "朱", "胡", "郭", "何", "高", "林", "罗", "郑",   "梁",  "谢", "宋",
                                 "唐", "许", "韩", "冯", "邓", "曹", "彭", "曾", "肖",   "田",  "董", "袁",
                                 "潘", "蒋", "蔡", "余", "杜", "叶", "程", "苏", "魏",   "吕",  "丁", "沈",
                                 "姚", "卢", "钟", "谭", "陆", "汪", "范", "廖", "欧阳", "司徒"};
const char* const kGivenOne[] = {"伟", "芳", "娜", "敏", "静", "丽", "强", "磊", "军", "洋",
                                 "勇", "艳", "杰", "娟", "涛", "明", "超", "霞", "平", "刚",
                                 "华", "萍", "红", "文", "辉", "力", "俊", "海", "宇", "浩",
                                 "婷", "雪", "晨", "欣", "斌", "琳", "颖", "鹏", "蕾", "峰"};
const char* const kGivenTwo[] = {"秀英", "桂英", "玉兰", "建华", "建国", "志强", "子涵", "梓轩",
                                 "一鸣", "思远", "佳怡", "雨萱", "家豪", "嘉欣", "美玲", "国强",
                                 "振华", "晓东", "晓燕", "丽华", "春梅", "永强", "德明", "俊杰",
                                 "淑芬", "海燕", "文博", "雅婷", "志明", "秋菊"};
const char* const kFirmWords[] = {"华盛", "恒通", "金穗", "宏达", "鼎盛", "广源", "信诚", "瑞丰",
                                  "联创", "天成", "誉峰", "嘉禾", "百顺", "盈科", "东升", "富力"};
const char* const kTrades[] = {"贸易",     "科技",     "餐饮管理", "文化传播", "信息技术",
                               "医疗器械", "教育咨询", "建筑装饰", "物流",     "商务服务"};

template <class T, std::size_t N> const T& PickFrom(Rng& rng, const T (&arr)[N]) {
    return arr[rng.Int(0, static_cast<std::int64_t>(N) - 1)];
}

} // namespace

const char* const kDeveloper = "广州天瑞房地产开发有限公司";

std::string PersonName(Rng& rng) {
    std::string name = PickFrom(rng, kSurnames);
    const double form = rng.Real();
    if (form < 0.45)
        name += PickFrom(rng, kGivenTwo);
    else if (form < 0.75)
        name += PickFrom(rng, kGivenOne);
    else
        name = name + PickFrom(rng, kGivenOne) + PickFrom(rng, kGivenOne);
    return name;
}

std::string FirmName(Rng& rng, const char* city) {
    return std::string(city) + PickFrom(rng, kFirmWords) + PickFrom(rng, kTrades) + "有限公司";
}

std::string Digits(Rng& rng, int count) {
    std::string s;
    for (int i = 0; i < count; ++i) s += static_cast<char>('0' + rng.Int(0, 9));
    return s;
}

} // namespace quillon::demo
