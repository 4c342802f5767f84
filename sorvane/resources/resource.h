// Ids of the module's resources: menus (IDR_), menu commands (ID_) and strings
// (IDS_). Menu, command and string ids are separate namespaces, so one number
// may stand for a command and for a string.
#pragma once

// Menus
#define IDR_MENU_CHAIN                  130  // linear chain
#define IDR_MENU_SECTION_MARK           131  // section height mark
#define IDR_MENU_PLAN_MARK              132  // plan height mark
#define IDR_MENU_BASE_PLANE             133  // base plane of a height group
#define IDR_MENU_ARC_CHAIN              134  // arc chain
#define IDR_MENU_PANEL_ACTIONS          135  // the panel's actions
#define IDR_MENU_TAGGED_TEXT            137  // tagged native text
#define IDR_MENU_TAGGED_DIM             138  // tagged native dimension
#define IDR_MENU_TAGGED_RADIAL          139  // tagged radial or diametric dimension
#define IDR_MENU_DRAWINGS             32102  // other drawings to take a height from

// Commands of the context menus
#define ID_GLOBAL_SETTINGS            32788
#define ID_CENTRE_TEXTS               32792
#define ID_REMOVE_SECTION             32794
#define ID_JOIN_CHAINS                32795
#define ID_REMOVE_POINTS              32797
#define ID_ADD_POINTS                 32798
#define ID_TAKE_PROPERTIES            32799
#define ID_FORMAT_AS_DEFAULT          32800
#define ID_RESET_ALL_VALUES           32801
#define ID_CHANGE_VALUE               32802
#define ID_RESET_VALUE                32803
#define ID_ALIGN_TEXTS_UCS            32805
#define ID_POSITION_TEXTS             32806
#define ID_PANEL_REMOVE_POINTS        32807
#define ID_REDISTRIBUTE_DIM_LINES     32810
#define ID_RESET_VALUES               32811
#define ID_SHOW_SECTION               32812
#define ID_APPEND_TEXT_SET            32813
#define ID_APPEND_TEXT_REMOVE         32814
#define ID_HMARK_ADD                  32818
#define ID_HMARK_EDIT                 32819
#define ID_HMARK_SELECT_ALL           32820
#define ID_HMARK_SELECT_BASE          32821
#define ID_HMARK_ALIGN_VERTICAL       32822
#define ID_HMARK_POSITION_TEXTS       32823
#define ID_HMARK_ALIGN_LINE           32824
#define ID_HMARK_BASE_FIXED           32825
#define ID_CONVERT_TEXTS_TO_SORVANE   32828
#define ID_CONVERT_TEXTS_TO_NATIVE    32829
#define ID_FORMAT_NATIVE_DIMS         32830
#define ID_HMARK_EDIT_BASE            32831
#define ID_CONVERT_DIMS_TO_NATIVE     32832
#define ID_CONVERT_DIMS_TO_SORVANE    32833
#define ID_HMARK_ADD_CURRENT          32835
#define ID_HMARK_ADD_PICKED           32836
#define ID_MARK_USER_TEXTS            32837
#define ID_CLEAR_USER_TEXT_MARKS      32838
#define ID_LINK_ARC                   32844  // on an arc chain
#define ID_HMARK_FROM_OTHER_GROUPS    32844  // on a height mark
#define ID_HMARK_EDIT_GROUP_BASE      32845
#define ID_EXT_SHOW                   32852
#define ID_EXT_HIDE                   32853
#define ID_HMARK_CHECKER              32853  // in the panel's menu
#define ID_LEADER_ON                  32854
#define ID_PANEL_LEADERS_OFF          32852  // in the panel's menu
#define ID_LEADER_OFF                 32855
#define ID_TICK_DOT                   32856
#define ID_TICK_OBLIQUE               32857
#define ID_TICK_CIRCLE                32858
#define ID_TICK_ARROW                 32859
#define ID_TICK_CROSS                 32860
#define ID_TICK_NONE                  32861
#define ID_REPLACE_APPEND_TEXTS       32870
#define ID_DIMJUST_CENTRE             32871
#define ID_DIMJUST_EXT1               32872
#define ID_DIMJUST_EXT2               32873
#define ID_DIMJUST_OVER_EXT1          32874
#define ID_DIMJUST_OVER_EXT2          32875
#define ID_DIMTAD_CENTRE              32876
#define ID_DIMTAD_ABOVE               32877
#define ID_DIMTAD_OUTSIDE             32878
#define ID_DIMTAD_JIS                 32879
#define ID_SHOW_SUM                   32880
#define ID_LABEL_SET                  32881
#define ID_AFFIX_SET                  32882
#define ID_EXT_DIRECTION              32883
#define ID_AFFIX_REMOVE               32884
#define ID_LABEL_REMOVE               32885
#define ID_TEXT_BACKGROUND            32886
#define ID_PROPERTIES                 32887
#define ID_SUMS_SHOW                  32889
#define ID_SUMS_REMOVE                32890
#define ID_AUTO_TEXT_POSITION         32891
#define ID_ALT_UNITS                  32893
#define ID_THIS_DRAWING               32896
#define ID_UPDATE_HMARK_LINKS         32897
#define ID_REPLACE_DWG_PATH           32899

// Strings
#define IDS_YES                         100
#define IDS_NO                          101
#define IDS_SELECT_CHAINS              7043
#define IDS_AUTO_VALUE_AFTER_SAVE      7044
#define IDS_UNIT_FEET_INCH             7045
#define IDS_UNIT_FT                    7046
#define IDS_UNIT_INCH                  7047
#define IDS_FEET_INCH_MARK             7052
#define IDS_LEFT                       7053
#define IDS_RIGHT                      7054
#define IDS_LABEL_TITLE                7055
#define IDS_LABEL_PROMPT               7056
#define IDS_AFFIX_VALUES               7060
#define IDS_AFFIX_PREFIX               7061
#define IDS_AFFIX_SUFFIX               7062
#define IDS_SELECT                     7065
#define IDS_NO_SELECTION               7066
#define IDS_KIND_CHAINS                7067
#define IDS_KIND_HMARKS                7068
#define IDS_KIND_NATIVE_DIMS           7069
#define IDS_KIND_TEXTS                 7070
#define IDS_GROUP_GENERAL              7071
#define IDS_GROUP_TEXT                 7072
#define IDS_GROUP_LINES                7073
#define IDS_GROUP_UNITS                7074
#define IDS_BOOL_ON                    7075
#define IDS_UNDEFINED                  7076
#define IDS_BOOL_OFF                   7077
#define IDS_ABOVE                      7078
#define IDS_BELOW                      7079
#define IDS_TICK_NONE                  7080
#define IDS_TICK_OBLIQUE               7081
#define IDS_TICK_DOT                   7082
#define IDS_TICK_CIRCLE                7083
#define IDS_TICK_ARROW                 7084
#define IDS_TICK_CROSS                 7085
#define IDS_PLAN_TYPE_2                7086
#define IDS_PLAN_TYPE_1                7087
#define IDS_FINISHED_TIP_DOWN          7088
#define IDS_RAW_TIP_DOWN               7089
#define IDS_FINISHED_TIP_UP            7090
#define IDS_RAW_TIP_UP                 7091
#define IDS_EXTEND_BEYOND_DIM_LINES    7094
#define IDS_DIM_LINE_EXTENSION         7095
#define IDS_REMOVE_KEYWORDS            7098
#define IDS_ENTRIES_REPLACED           7099
#define IDS_ANNO_SCALE_LONG            7101
#define IDS_ANNO_SCALE                 7102
#define IDS_GROUP_EDITABLE             7103
#define IDS_REPLACE_KIND_HMARKS        7104
#define IDS_REPLACE_KIND_CHAINS        7105
#define IDS_REPLACE_KIND_ALL           7106
#define IDS_ASK_CANCEL                 7107
#define IDS_NOTHING_FOUND              7108
#define IDS_REPLACE_SUMMARY            7109
#define IDS_ASK_CONTINUE               7110
#define IDS_NO_FILE_FOUND              7111
#define IDS_CHANGE_VALUE_TITLE        32800
#define IDS_MEASURED_VALUE            32801
#define IDS_SELECT_CHAINS_TO_UPDATE   32804
#define IDS_INI_FILTER                32810
#define IDS_NEW_ROW                   32811
#define IDS_PICK_TEXTS                32812
#define IDS_PICK_SECTION              32824
#define IDS_PICK_SECTION_REMOVE       32825
#define IDS_PICK_POINTS               32826
#define IDS_CURRENT_LAYER             32832
#define IDS_SECTION_SYMBOL_SIZE       32852
#define IDS_SYMBOL_SIZE               32853
#define IDS_PLAN_SYMBOL_DIAMETER      32854
#define IDS_EXTEND_BEYOND_EXT         32855
#define IDS_MODE_LINEAR               32868
#define IDS_MODE_HMARKS               32869
#define IDS_UNKNOWN_SCALE             32873
#define IDS_MODE_TEXT                 32880
#define IDS_DEFAULT_TEXT_POSITION     32892
#define IDS_CENTRE_TEXTS              32893
#define IDS_EXT_MAXIMAL               32895
#define IDS_EXT_NONE                  32896
#define IDS_EXT_KEEP                  32897
#define IDS_SELECT_CHAINS_TO_REFRESH  32899
#define IDS_SELECT_NATIVE_CHAINS      32901
#define IDS_LOCKED_LAYER              32903
#define IDS_LIST_TEXT_STYLE           32909
#define IDS_LIST_DIM_LINE_OFFSET      32910
#define IDS_LIST_EXT_LENGTH_LINEAR    32911
#define IDS_LIST_EXT_LENGTH_HMARK     32912
#define IDS_COMMAND_ACTIVE            32927
#define IDS_SETTINGS_TITLE            32928
#define IDS_TAB_LOCATION              32929
#define IDS_TAB_MOVE                  32930
#define IDS_DIM_LINE_DISTANCE         32938
#define IDS_M_CM_10M                  32939
#define IDS_REDUCED_SIZE              32940
#define IDS_SUPPRESS_SIGN             32941
#define IDS_LAYER0_FORBIDDEN          32947
#define IDS_BY_SCALE                  32952
#define IDS_CHECKER_SUMMARY           32953
