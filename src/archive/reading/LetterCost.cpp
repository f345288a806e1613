#include "archive/reading/LetterCost.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace pellumar::archive {

namespace {

// Names are too short for statistics of their own, so this is what is known beforehand: which
// letters the names of documents, photos and songs are made of in each language. Every language
// must describe the same bytes, ASCII included, or a charset that swallows ASCII letters into its
// double bytes would look cheap.

// The letters of common words, the most frequent ones first.
constexpr std::u32string_view kSimplified =
    U"的一是在不了有和人这中大为上个国我以要他时来用们生到作地于出就分对成会可主发年动同工也能"
    U"下过子说产种面而方后多定行学法所民得经十三之进着等部度家电力里如水化高自二理起小物现实加"
    U"量都两体制机当使点从业本去把性好应开它合还因由其些然前外天政四日那社义事平形相全表间样与"
    U"关各重新线内数正心反你明看原又么利比或但质气第向道命此变条只没结解问意建月公无系军很情者"
    U"最立代想已通并提直题党程展五果料象员革位入常文总次品式活设及管特件长求老头基资边流路级少"
    U"图山统接知较将组见计别她手角期根论运农指几九区强放决西被干做必战先回则任取据处队南给色光"
    U"门即保治北造百规热领七海口东导器压志世金增争济阶油思术极交受联什认六共权收证改清己美再采"
    U"转更单风切打白教速花带安场身车例真务具万每目至达走积示议声报斗完类八离华名确才科张信马节"
    U"话米整空元况今集温传土许步群广石记需段研界拉林律叫且究观越织装影算低持音众书布复容儿须际"
    U"商非验连断深难近矿千周委素技备半办青省列习响约支般史感劳便团往酸历市克何除消构府称太准精"
    U"值号率族维划选标写存候毛亲快效斯院查江型眼王按格养易置派层片始却专状育厂京识适属圆包火住"
    U"调满县局照参红细引听该铁价严龙飞档夹汇简票版录附签册拍视频游戏桌副歌曲载软缩您旅婚礼校师"
    U"课练考试卷答案纪念庆爱妈爸友宝春夏秋冬毕初稿终修订草申请预财协份护封背景乐截屏扫描客户供"
    U"购库仓储培训勤绩奖税银账欠款讯测英语猫狗鸡鱼鸟虫树叶云雪雨左右沪津渝浙苏粤杭圳汉武街楼房"
    U"租押贷医诊检健康饮食菜谱厨味茶酒店李陈刘杨赵黄吴徐孙胡朱郭罗梁宋唐韩冯董萧曹袁邓傅曾彭吕"
    U"蒋蔡余杜魏丁密码笔假诗词典驱壁纸像";

constexpr std::u32string_view kTraditional =
    U"的一是在不了有和人這中大爲上個國我以要他時來用們生到作地於出就分對成會可主發年動同工也能"
    U"下過子說產種面而方後多定行學法所民得經十三之進著等部度家電力裡如水化高自二理起小物現實加"
    U"量都兩體制機當使點從業本去把性好應開它合還因由其些然前外天政四日那社義事平形相全表間樣與"
    U"關各重新線內數正心反你明看原又麼利比或但質氣第向道命此變條只沒結解問意建月公無系軍很情者"
    U"最立代想已通並提直題黨程展五果料象員革位入常文總次品式活設及管特件長求老頭基資邊流路級少"
    U"圖山統接知較將組見計別她手角期根論運農指幾九區強放決西被幹做必戰先回則任取據處隊南給色光"
    U"門即保治北造百規熱領七海口東導器壓志世金增爭濟階油思術極交受聯什認六共權收證改清己美再採"
    U"轉更單風切打白教速花帶安場身車例真務具萬每目至達走積示議聲報鬥完類八離華名確才科張信馬節"
    U"話米整空元況今集溫傳土許步群廣石記需段研界拉林律叫且究觀越織裝影算低持音眾書布覆容兒須際"
    U"商非驗連斷深難近礦千周委素技備半辦青省列習響約支般史感勞便團往酸歷市克何除消構府稱太準精"
    U"值號率族維劃選標寫存候毛親快效斯院查江型眼王按格養易置派層片始卻專狀育廠京識適屬圓包火住"
    U"調滿縣局照參紅細引聽該鐵價嚴龍飛檔夾匯簡票版錄附籤冊拍視頻遊戲桌副歌曲載軟縮您旅婚禮校師"
    U"課練考試卷答案紀念慶愛媽爸友寶春夏秋冬畢初稿終修訂草申請預財協份護封背景樂截屏掃描客戶供"
    U"購庫倉儲培訓勤績獎稅銀賬欠款訊台螢幕硬網碟窗像檢測英語貓狗雞魚鳥蟲樹葉雲雪雨左右街樓房租"
    U"押貸醫診健康飲食菜譜廚味茶酒店雄灣臺桃竹苗彰投嘉陳劉楊趙黃吳徐孫胡朱郭羅梁宋唐韓馮董蕭曹"
    U"袁鄧傅曾彭呂蔣蔡余杜魏丁密碼週筆假詩詞典驅";

constexpr std::u32string_view kKanji =
    U"日一国人年大十二本中長出三時行見月後前生五間上東四今金九入学高円子外八六下来気小七山話女"
    U"北午百書先名川千水半男西電校語土木聞食車何南万毎白天母火右読友左休父雨会同事自社発者地業"
    U"方新場員立開手力問代明動京目通言理体田主題意不作用度強公持野以思家世多正安院心界教文元重"
    U"近考画海売知道集別物使品計死特私始朝運終台広住真有口少町料工建空急止送切転研足究楽起着店"
    U"病質待試族銀早映親験英医仕去味写字答夜音注帰古歌買悪図週室歩風紙黒花春赤青館屋色走秋夏習"
    U"駅洋旅服夕借曜飲肉貸堂鳥飯勉冬昼茶弟牛魚兄犬妹姉漢報告資議録積請求領収契約案予算設定内確"
    U"認添付提申込履歴表最版改訂管全部分門営技術様単結合果覧簿保存複製変更経給与細税務険末調整"
    U"源泉徴振座番号所帳券証免許卒式化祭誕婚曲像背景壁素材圧縮解凍項必説順操法参関係連絡網回配"
    U"布印刷原稿論課宿授講義演実期模範平成令和昭阪福岡札幌横浜神奈県市区村猫雪雲星島桜梅松竹森"
    U"林池沢崎藤佐伊斎渡辺加井石清谷橋吉絵草例面次索引控納検訳残勤暇届可依頼票概要詳唱";

constexpr std::u32string_view kHangul =
    U"이다의는에을를가고하지도은기사한리로인자어서시아일정대나수해보스그여주부전들과비상조장소"
    U"제라있미성구원유학공문경국마동트오선용회생간신연안거관계화우니위모바진무적교식치방당중반"
    U"개실영재산게야말세명크만터드행금분물력약견최종본새폴더파요청결내출입목록표준험예업발단획"
    U"초차료외통양설건강월년추감특별급번호증권름겨울봄음악노래카메디버백압축풀린없복습졸논육숙"
    U"답체첨참컴퓨프램릴레앨범첩글두례완품매납송배열쇠엄빠족혼념님께검토석현황환불직돌잔휴김박"
    U"윤임류홍손허남심곽민채천함변길왕옥훈희혜꽃빛";

// Tenths of bits for а to я, from their frequency in Russian text.
constexpr std::array<std::uint8_t, 32> kRussian = {36, 60, 45, 59, 51,  36, 67, 59, 38, 64, 48,
                                                   45, 50, 39, 32, 52,  44, 42, 40, 53, 75, 67,
                                                   77, 61, 71, 81, 110, 57, 58, 83, 73, 56};

constexpr std::uint64_t kAscii = 47;
constexpr std::uint64_t kUnreadableByte = 150;

bool isAsciiLetter(char32_t c) {
    return (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z');
}

bool isAsciiLower(char32_t c) {
    return c >= U'a' && c <= U'z';
}

bool isCyrillic(char32_t c) {
    return c >= 0x400 && c <= 0x45F;
}

bool isCyrillicUpper(char32_t c) {
    return c >= 0x400 && c <= 0x42F;
}

bool isKana(char32_t c) {
    return c >= 0x3041 && c <= 0x30FE;
}

bool isHalfWidthKana(char32_t c) {
    return c >= 0xFF61 && c <= 0xFF9F;
}

bool isHan(char32_t c) {
    return c >= 0x4E00 && c <= 0x9FFF;
}

bool isHangul(char32_t c) {
    return c >= 0xAC00 && c <= 0xD7A3;
}

// A letter with the ones beside it; a space where the name begins or ends.
struct Place {
    char32_t before = U' ';
    char32_t letter = U' ';
    char32_t after = U' ';
    std::uint16_t code = 0;  // its bytes; 0 for longer ones than two
};

// ---- Alphabets

std::uint64_t costOfCyrillic(const Place& place) {
    const char32_t c = place.letter;
    if (!isCyrillic(c)) {
        // Of the signs only these are seen in names: « » № – —
        return std::u32string_view(U"«»№–—").find(c) != std::u32string_view::npos ? 90 : 140;
    }
    std::uint64_t cost = 90;
    if (c >= U'А' && c <= U'я') {
        cost = kRussian[(c - U'А') % kRussian.size()];
    } else if (c != U'ё' && c != U'Ё') {
        cost = 100;
    }
    if (isCyrillicUpper(c)) {
        const bool insideWord = isCyrillic(place.before) && !isCyrillicUpper(place.before);
        cost += insideWord ? 70 : 15;
    } else if (isCyrillicUpper(place.before) && isCyrillicUpper(place.after)) {
        cost += 40;
    }
    if (isAsciiLetter(place.before)) {
        cost += 60;
    }
    if (isAsciiLetter(place.after)) {
        cost += 60;
    }
    return cost;
}

std::uint64_t costOfWestern(const Place& place) {
    constexpr std::u32string_view kUsual = U"éäöü";
    constexpr std::u32string_view kSeen = U"ßèàçñáíóúåæâêôîëïûòìùÿÄÖÜÉÅ";
    const char32_t c = place.letter;
    const bool upper = std::u32string_view(U"ÄÖÜÉÅÑÇÆ").find(c) != std::u32string_view::npos;
    std::uint64_t cost = 150;
    if (kUsual.find(c) != std::u32string_view::npos) {
        cost = 60;
    } else if (kSeen.find(c) != std::u32string_view::npos) {
        cost = 75;
    } else if (std::u32string_view(U"ÑÇÆ°ªº").find(c) != std::u32string_view::npos) {
        cost = 95;
    } else {
        return cost;
    }
    if (!isAsciiLetter(place.before) && !isAsciiLetter(place.after)) {
        cost += 40;
    }
    if (place.before >= 0x80) {
        cost += 20;
    }
    if (upper && isAsciiLower(place.before)) {
        cost += 70;
    }
    return cost;
}

// ---- East Asia

// The letters of a list, each found at once: names of any length are judged by them.
class CommonLetters {
  public:
    explicit CommonLetters(std::u32string_view fromMostFrequent) {
        constexpr std::size_t kMostCommon = 150;
        for (std::size_t i = fromMostFrequent.size(); i-- > 0;) {
            costs_[fromMostFrequent[i] % kSize] = i < kMostCommon ? 80 : 100;
        }
    }

    // The cost of a letter of the list, or nothing if it is not in it.
    [[nodiscard]] std::optional<std::uint64_t> costOf(char32_t c) const {
        const std::uint8_t cost = c < kSize ? costs_[c] : 0;
        return cost == 0 ? std::nullopt : std::optional<std::uint64_t>(cost);
    }

  private:
    static constexpr std::size_t kSize = 0x10000;
    std::vector<std::uint8_t> costs_ = std::vector<std::uint8_t>(kSize);
};

bool between(std::uint16_t code, std::uint16_t first, std::uint16_t last) {
    return code >= first && code <= last;
}

std::uint64_t costOfSign(char32_t c) {
    // Full-width forms of ASCII, brackets and the middle dot are what names have of them.
    const bool usual = (c >= 0xFF01 && c <= 0xFF5E) || (c >= 0x3000 && c <= 0x3011) || c == 0xB7 ||
                       c == 0x2014 || c == 0x2019 || c == 0x201C || c == 0x201D;
    return usual ? 105 : 150;
}

std::uint64_t costOfJapanese(const Place& place) {
    const char32_t c = place.letter;
    if (isHalfWidthKana(c)) {
        const bool alone = !isHalfWidthKana(place.before) && !isHalfWidthKana(place.after);
        return alone ? 120 : 70;
    }
    if (isKana(c)) {
        return 70;
    }
    static const CommonLetters kCommon(kKanji);
    if (const auto cost = kCommon.costOf(c)) {
        return *cost;
    }
    if (!isHan(c)) {
        return costOfSign(c);
    }
    return between(place.code, 0x889F, 0x9872) ? 135 : 180;
}

std::uint64_t costOfChinese(const Place& place,
                            const CommonLetters& common,
                            std::uint16_t firstLevelBegin,
                            std::uint16_t firstLevelEnd) {
    const char32_t c = place.letter;
    if (const auto cost = common.costOf(c)) {
        return *cost;
    }
    if (!isHan(c)) {
        return isKana(c) ? 140 : costOfSign(c);
    }
    return between(place.code, firstLevelBegin, firstLevelEnd) ? 135 : 180;
}

std::uint64_t costOfKorean(const Place& place) {
    const char32_t c = place.letter;
    static const CommonLetters kCommon(kHangul);
    if (const auto cost = kCommon.costOf(c)) {
        return *cost - 10;
    }
    if (!isHangul(c)) {
        return isHan(c) ? 170 : costOfSign(c);
    }
    const bool ofTheStandard = place.code >> 8U >= 0xB0 && (place.code & 0xFFU) >= 0xA1;
    return ofTheStandard ? 140 : 190;
}

std::uint64_t costOfEastAsian(Charset charset, const Place& place) {
    // A double byte between two ASCII letters is most often an accented letter in a Western word.
    std::uint64_t cost = 0;
    if (isAsciiLetter(place.before)) {
        cost += 20;
    }
    if (isAsciiLower(place.after)) {
        cost += isAsciiLetter(place.before) ? 60U : 30U;
    }
    switch (charset) {
        case Charset::kShiftJis:
            return cost + costOfJapanese(place);
        case Charset::kGbk: {
            static const CommonLetters kCommon(kSimplified);
            return cost + costOfChinese(place, kCommon, 0xB0A1, 0xD7F9);
        }
        case Charset::kBig5: {
            static const CommonLetters kCommon(kTraditional);
            return cost + costOfChinese(place, kCommon, 0xA440, 0xC67E);
        }
        default:
            return cost + costOfKorean(place);
    }
}

std::uint64_t costOf(Charset charset, const Place& place) {
    if (place.letter < 0x80) {
        return kAscii;
    }
    switch (charset) {
        case Charset::kCodePage866:
        case Charset::kCodePage1251:
            return costOfCyrillic(place);
        case Charset::kCodePage437:
            return costOfWestern(place);
        default:
            return costOfEastAsian(charset, place);
    }
}

// How many bytes the code at the start of `bytes` has.
std::size_t lengthOfCode(Charset charset, ByteView bytes) {
    const std::uint8_t lead = bytes[0];
    const bool single = lead < 0x80 || charset >= Charset::kCodePage866 ||
                        (charset == Charset::kShiftJis && lead >= 0xA1 && lead <= 0xDF);
    if (single || bytes.size() < 2) {
        return 1;
    }
    const bool fourBytes = charset == Charset::kGbk && bytes[1] >= 0x30 && bytes[1] <= 0x39;
    return std::min<std::size_t>(bytes.size(), fourBytes ? 4 : 2);
}

}  // namespace

std::uint64_t letterCost(Charset charset, ByteView bytes, std::u32string_view letters) {
    std::uint64_t cost = 0;
    Place place;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        const std::size_t length = bytes.empty() ? 0 : lengthOfCode(charset, bytes);
        place.letter = letters[i];
        place.after = i + 1 < letters.size() ? letters[i + 1] : U' ';
        place.code = 0;
        if (length == 2) {
            place.code = static_cast<std::uint16_t>((bytes[0] << 8U) | bytes[1]);
        }
        cost += costOf(charset, place);
        place.before = place.letter;
        bytes = bytes.subspan(length);
    }
    return cost;
}

bool isPlausible(Charset charset, ByteView bytes, std::u32string_view letters) {
    constexpr std::uint64_t kUsualByte = 60;
    const auto ascii = static_cast<std::uint64_t>(
        std::count_if(letters.begin(), letters.end(), [](char32_t c) { return c < 0x80; }));
    const std::uint64_t cost = letterCost(charset, bytes, letters) - ascii * kAscii;
    return cost <= (bytes.size() - ascii) * kUsualByte;
}

std::uint64_t costOfUnreadable(ByteView bytes) {
    std::uint64_t cost = 0;
    for (const std::uint8_t byte : bytes) {
        cost += byte < 0x80 ? kAscii : kUnreadableByte;
    }
    return cost;
}

}  // namespace pellumar::archive
